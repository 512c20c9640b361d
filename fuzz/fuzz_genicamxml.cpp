// Camera descriptions, whatever a camera or a file holds: the backend either serves them or
// refuses them with an exception, and never crashes.
#include <deviceparametercollection.h>

#include <parametercollection/exception.h>

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_genicamxml";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    qInstallMessageHandler(quiet);
    Backend::DeviceParameterCollection collection(QStringLiteral("fuzz"));
    try {
        collection.attachSimulated(
            QStringLiteral("CameraDevice"),
            QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
        // Walk what was served, as a tree would.
        const QStringList children = collection.getChildren(QStringLiteral("@CameraDevice/Root"));
        for (const QString& child : children) {
            if (const auto parameter = collection.getParameter(child)) {
                parameter->getParameterData();
            }
        }
    } catch (const ParameterCollection::Exception&) {
        // A description refused with a reason is the expected outcome for most inputs.
    }
    return 0;
}
