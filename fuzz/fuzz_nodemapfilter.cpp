// Filter files as an installation might ship them, broken or not, applied to the built-in
// camera: read with the streaming reader the plug-in uses, every item judged on its own, and
// nothing crashes. Where the reader accepts a file, a document tree must read the same items
// from it, since what a filter file means must not depend on how it is read.
#include "internal/legacy/nodemapfilter.h"
#include "internal/legacy/nodemapfilterfile.h"

#include <camerapool.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDomDocument>
#include <QDomElement>
#include <QDomNodeList>

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

// XML reads every line end as a line feed; the document tree leaves carriage returns in. XML
// has no NUL character; the document tree keeps it, the streaming reader drops it.
QString firstText(const QDomElement& item, const char* tag, bool* found)
{
    const QDomNodeList elements = item.elementsByTagName(QLatin1String(tag));
    *found = !elements.isEmpty();
    QString text = *found ? elements.at(0).toElement().text() : QString();
    return text.remove(QChar(0))
        .replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

// Only called on files the streaming reader accepted, so their nesting is bounded.
bool sameAsDocumentTree(const QByteArray& text, const NodeMapFilterFile& file)
{
    QDomDocument document;
    if (!document.setContent(text)) {
        // The two readers may disagree on what is well-formed; only the meaning is compared.
        return true;
    }
    int index = 0;
    for (QDomElement element = document.documentElement().firstChildElement(); !element.isNull();
         element = element.nextSiblingElement(), ++index) {
        if (index >= file.items().size()) {
            return false;
        }
        const NodeMapFilterFile::Item& item = file.items().at(index);
        bool has = false;
        if (firstText(element, "Name", &has) != item.name || has != item.hasName ||
            firstText(element, "Visibility", &has) != item.visibility ||
            has != item.hasVisibility ||
            firstText(element, "AccessMode", &has) != item.accessMode ||
            has != item.hasAccessMode) {
            return false;
        }
    }
    return index == file.items().size();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Camera& c = camera();
    qInstallMessageHandler(quiet);
    const QByteArray text =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    const QSharedPointer<NodeMapFilterFile> file =
        NodeMapFilterFile::read(buffer, QStringLiteral("fuzz.xml"));
    if (!file->isValid()) {
        // Said once, with where and why.
        if (file->takeProblemReport().isEmpty() || !file->takeProblemReport().isEmpty()) {
            __builtin_trap();
        }
        return 0;
    }
    if (!sameAsDocumentTree(text, *file)) {
        __builtin_trap();
    }
    NodeMapFilter::applyItems(*file, c.collection, QStringLiteral("@CameraDevice"));
    QCoreApplication::processEvents();
    return 0;
}
