// Filter files as an installation might ship them, broken or not, applied to the built-in
// camera: every item is judged on its own and nothing crashes.
#include "internal/legacy/nodemapfilter.h"

#include <camerapool.h>

#include <QCoreApplication>
#include <QDomDocument>
#include <QDomElement>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

struct Camera {
    std::unique_ptr<QCoreApplication> app;
    std::unique_ptr<Backend::CameraPool> pool;
    QSharedPointer<ParameterCollection::IParameterCollection> collection;
};

Camera& camera()
{
    static Camera instance = [] {
        static int argc = 1;
        static char name[] = "fuzz_nodemapfilter";
        static char* argv[] = {name, nullptr};
        Camera c;
        c.app = std::make_unique<QCoreApplication>(argc, argv);
        c.pool = std::make_unique<Backend::CameraPool>();
        c.collection = c.pool->getParameterCollection(c.pool->openSimulated());
        return c;
    }();
    return instance;
}

void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Camera& c = camera();
    qInstallMessageHandler(quiet);
    QDomDocument document;
    if (!document.setContent(
            QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)))) {
        return 0;
    }
    for (QDomElement item = document.documentElement().firstChildElement(); !item.isNull();
         item = item.nextSiblingElement()) {
        NodeMapFilter::processElement(item, c.collection, QStringLiteral("@CameraDevice"));
    }
    QCoreApplication::processEvents();
    return 0;
}
