#include "dumpcommand.h"

#include <camerainfo.h>
#include <camerapool.h>
#include <devicelogic.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <simulateddevice.h>

#include <QSignalSpy>
#include <QtTest>

#include <memory>

using Backend::SimulatedDevice;
using ParameterCollection::IParameterCollection;
using VantoViewer::DumpCommand;

namespace {

struct DumpResult {
    int status = -1;
    QString out;
    QString err;
};

DumpResult dump(const Plugin::CameraPool::IBaseInfo& info,
                const QSharedPointer<IParameterCollection>& collection)
{
    DumpResult result;
    QTextStream out(&result.out);
    QTextStream err(&result.err);
    result.status = DumpCommand(out, err).run(info, collection);
    return result;
}

// Value column of every feature line.
QStringList valueColumns(const QString& dump)
{
    QStringList values;
    for (const QString& line : dump.split(QLatin1Char('\n'))) {
        const QStringList columns = line.split(QLatin1Char('\t'));
        if (columns.size() == 4) {
            values << columns[3];
        }
    }
    return values;
}

SimulatedDevice* deviceOf(Backend::DeviceParameterCollection& collection)
{
    SimulatedDevice* device = nullptr;
    collection.runOnDeviceThread(
        [&device](Backend::DeviceWorker& worker) { device = worker.simulatedDevice(0); });
    return device;
}

// The built-in camera's description on a device that stops answering as it opens.
QSharedPointer<IParameterCollection> openLostWhileOpening(const QString& id)
{
    auto collection = QSharedPointer<Backend::DeviceParameterCollection>::create(id);
    collection->setLogicFactory([](SimulatedDevice& device) {
        device.setFault(SimulatedDevice::Fault::Timeout);
        return std::unique_ptr<Backend::DeviceLogic>();
    });
    collection->attachSimulated(QStringLiteral("CameraDevice"),
                                Backend::CameraPool::builtinCameraXml());
    return collection;
}

} // namespace

class TestDumpCommand : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldDumpAHealthyCameraAndSucceed()
    {
        Backend::CameraPool pool;
        const auto info = pool.openSimulated();

        const DumpResult result = dump(*info, pool.getParameterCollection(info));

        QCOMPARE(result.status, DumpCommand::EXIT_OK);
        QVERIFY2(result.err.isEmpty(), qPrintable(result.err));
        QCOMPARE(result.out.section(QLatin1Char('\n'), 0, 0), info->getFriendlyName());
        QVERIFY(result.out.contains(QStringLiteral(" features in ")));
        QVERIFY(valueColumns(result.out).size() > 300);
        pool.closeAll();
    }

    void shouldFailAndSayWhyWhenTheCameraWasLostBeforeItsValuesWereRead()
    {
        // Given a camera that stops answering while it opens, before any value was read, and
        // that names neither vendor nor model
        const QString id = QStringLiteral("Simulated:gone");
        const auto collection = openLostWhileOpening(id);
        const Backend::CameraInfo info(id, QString(), QString(), QString(),
                                       QStringLiteral("Simulated"));

        const DumpResult result = dump(info, collection);

        // Then the dump names the camera by its id, fails, and says why on stderr
        QCOMPARE(result.out.section(QLatin1Char('\n'), 0, 0), id);
        QCOMPARE(result.status, DumpCommand::EXIT_FAILED);
        QVERIFY2(result.err.contains(id + QStringLiteral(" was lost: ")), qPrintable(result.err));
        QVERIFY2(result.err.contains(QStringLiteral("Timeout")), qPrintable(result.err));
    }

    void shouldMarkEveryValueOfACameraLostBeforeItsValuesWereRead()
    {
        const QString id = QStringLiteral("Simulated:gone");
        const auto collection = openLostWhileOpening(id);
        const Backend::CameraInfo info(id, QString(), QString(), QString(),
                                       QStringLiteral("Simulated"));

        const DumpResult result = dump(info, collection);

        // No value pretends to be the camera's: each is an error or marked as lost
        const QStringList values = valueColumns(result.out);
        QVERIFY(values.size() > 300);
        for (const QString& value : values) {
            QVERIFY2(value.startsWith(QStringLiteral("<error: ")) ||
                         value.endsWith(QStringLiteral("<device lost>")),
                     qPrintable(value));
        }
    }

    void shouldFailWhenTheCameraIsLostAfterOpening()
    {
        Backend::CameraPool pool;
        const auto info = pool.openSimulated();
        const auto collection = pool.getParameterCollection(info);
        auto* device = static_cast<Backend::DeviceParameterCollection*>(collection.data());
        const auto width = collection->getParameter(QStringLiteral("@CameraDevice/Width"));
        width->addObserver();
        QSignalSpy lost(collection.data(), &IParameterCollection::deviceLost);
        deviceOf(*device)->setFault(SimulatedDevice::Fault::Timeout);
        collection->refresh();
        QVERIFY(lost.wait());

        const DumpResult result = dump(*info, collection);

        QCOMPARE(result.status, DumpCommand::EXIT_FAILED);
        QVERIFY2(result.err.contains(info->getFriendlyName() + QStringLiteral(" was lost")),
                 qPrintable(result.err));
        // The last values read are still printed
        QVERIFY(valueColumns(result.out).size() > 300);
        width->removeObserver();
        pool.closeAll();
    }
};

QTEST_GUILESS_MAIN(TestDumpCommand)
#include "tst_dumpcommand.moc"
