#include "dumpcommand.h"

#include "cameraname.h"
#include "featuredump.h"

#include <camerapool/ibaseinfo.h>
#include <deviceparametercollection.h>
#include <parametercollection/iparametercollection.h>

#include <QCoreApplication>

namespace VantoViewer {

void DumpCommand::settle(ParameterCollection::IParameterCollection& collection)
{
    // The device thread's news, such as a loss while the camera opened, is still on its way.
    // A command line tool may wait for it, there being no window to keep alive, but not for
    // ever: a stalled device thread does not get there.
    if (auto* device = qobject_cast<Backend::DeviceParameterCollection*>(&collection)) {
        device->waitForDevice(SETTLE_TIMEOUT_MS);
    }
    QCoreApplication::processEvents();
}

int DumpCommand::run(const Plugin::CameraPool::IBaseInfo& info,
                     const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    const QString name = CameraName::of(info);
    if (!collection) {
        m_err << "vantoviewer: " << name << " has no features to print\n";
        m_err.flush();
        return EXIT_FAILED;
    }
    QString lossMessage;
    const QObject listening; // ends the connection below with this function
    QObject::connect(collection.data(), &ParameterCollection::IParameterCollection::deviceLost,
                     &listening, [&lossMessage](const QString& message) {
                         if (lossMessage.isEmpty()) {
                             lossMessage = message;
                         }
                     });
    settle(*collection);

    FeatureDump dumper(m_out);
    m_out << name << "\n";
    const int features = dumper.write(*collection);
    m_out << features << " features in " << dumper.categoryCount() << " categories";
    if (dumper.errorCount() > 0) {
        m_out << ", " << dumper.errorCount() << " could not be read";
    }
    m_out << "\n";
    m_out.flush();

    settle(*collection);
    if (!collection->isLost()) {
        return EXIT_OK;
    }
    if (lossMessage.isEmpty()) {
        lossMessage = dumper.firstLossReason();
    }
    m_err << "vantoviewer: " << name << " was lost: "
          << (lossMessage.isEmpty() ? QStringLiteral("the device gave no reason") : lossMessage)
          << "; the values printed are the last ones read, or errors\n";
    m_err.flush();
    return EXIT_FAILED;
}

} // namespace VantoViewer
