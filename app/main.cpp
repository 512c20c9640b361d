#include "featuredump.h"

#include <camerapool.h>
#include <parametercollection/exception.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Vanto"));
    QCoreApplication::setApplicationName(QStringLiteral("Vanto Viewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NODESCOPE_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Vanto Viewer: browse and edit the GenICam features of cameras."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption simulate(
        QStringLiteral("simulate"),
        QStringLiteral("Open a simulated camera: the built-in one, or the GenICam description "
                       "FILE.xml given as argument."));
    const QCommandLineOption camera(QStringLiteral("camera"),
                                    QStringLiteral("Open the camera with this id or IP address."),
                                    QStringLiteral("ID|ADDRESS"));
    const QCommandLineOption dump(QStringLiteral("dump"),
                                  QStringLiteral("Print the feature tree with values, then exit."));
    const QCommandLineOption discover(
        QStringLiteral("discover"),
        QStringLiteral("Search every network interface and USB for cameras and list them."));
    parser.addOptions({simulate, camera, dump, discover});
    parser.addPositionalArgument(QStringLiteral("FILE.xml"),
                                 QStringLiteral("GenICam description for --simulate."),
                                 QStringLiteral("[FILE.xml]"));
    parser.process(app);

    QTextStream out(stdout);
    QTextStream err(stderr);
    Backend::CameraPool pool;

    if (parser.isSet(discover)) {
        for (const auto& d : Backend::CameraPool::discover()) {
            out << d.id << "\t" << d.address << "\t" << d.vendor << "\t" << d.model << "\t"
                << d.protocol << "\n";
        }
        return 0;
    }

    QSharedPointer<Backend::CameraInfo> info;
    try {
        if (parser.isSet(camera)) {
            info = pool.openDevice(parser.value(camera));
        } else if (parser.isSet(simulate)) {
            const QStringList files = parser.positionalArguments();
            info = pool.openSimulated(files.isEmpty() ? QString() : files.first());
        } else {
            info = pool.openSimulated();
        }
    } catch (const ParameterCollection::Exception& e) {
        err << "vantoviewer: " << e.text() << "\n";
        return 1;
    }

    // Until the window exists every run is a dump; --dump already asks for exactly that.
    const auto collection = pool.getParameterCollection(info);
    VantoViewer::FeatureDump dumper(out);
    out << info->getFriendlyName() << "\n";
    const int features = dumper.write(*collection);
    out << features << " features in " << dumper.categoryCount() << " categories\n";
    return 0;
}
