#include "nodemapfilterfile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QXmlStreamReader>

namespace {

// Enough for every filter an installation has; more paths than this only come from a test.
const int kMaxCachedFiles = 64;

struct CacheEntry {
    QDateTime modified;
    qint64 size = -1;
    QSharedPointer<NodeMapFilterFile> file;
};

QHash<QString, CacheEntry>& cache()
{
    static QHash<QString, CacheEntry> entries;
    return entries;
}

// Collects the text of one element the way a document tree gives it: every text below it,
// whitespace-only runs left out. The three elements of an item may nest in one another, so
// each has its own.
struct Capture {
    const char* tag = nullptr;
    bool* found = nullptr;
    QString* text = nullptr;
    int depth = 0; // while collecting; 0 otherwise
};

} // namespace

QSharedPointer<NodeMapFilterFile> NodeMapFilterFile::load(const QString& path)
{
    const QFileInfo info(path);
    const QDateTime modified = info.lastModified();
    const qint64 size = info.size();
    QHash<QString, CacheEntry>& entries = cache();
    const auto found = entries.constFind(path);
    if (found != entries.constEnd() && found->modified == modified && found->size == size) {
        return found->file;
    }
    QFile device(path);
    if (!device.open(QIODevice::ReadOnly)) {
        return QSharedPointer<NodeMapFilterFile>();
    }
    QSharedPointer<NodeMapFilterFile> file = read(device, path);
    if (entries.size() >= kMaxCachedFiles && !entries.contains(path)) {
        entries.clear();
    }
    entries.insert(path, {modified, size, file});
    return file;
}

QSharedPointer<NodeMapFilterFile> NodeMapFilterFile::read(QIODevice& device, const QString& path)
{
    auto file = QSharedPointer<NodeMapFilterFile>::create();
    file->m_path = path;
    QXmlStreamReader reader(&device);
    int depth = 0;
    Item item;
    Capture captures[] = {{"Name", &item.hasName, &item.name, 0},
                          {"Visibility", &item.hasVisibility, &item.visibility, 0},
                          {"AccessMode", &item.hasAccessMode, &item.accessMode, 0}};
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            if (depth > kMaxDepth) {
                reader.raiseError(tr("elements nested deeper than %1 levels").arg(kMaxDepth));
                break;
            }
            if (depth == 2) {
                item = Item();
                item.line = reader.lineNumber();
            } else if (depth > 2) {
                const QStringRef tag = reader.qualifiedName();
                for (Capture& capture : captures) {
                    if (!*capture.found && tag == QLatin1String(capture.tag)) {
                        *capture.found = true;
                        capture.depth = depth;
                    }
                }
            }
            break;
        case QXmlStreamReader::EndElement:
            for (Capture& capture : captures) {
                if (capture.depth == depth) {
                    capture.depth = 0;
                }
            }
            if (depth == 2) {
                file->m_items.append(item);
            }
            --depth;
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace()) {
                for (Capture& capture : captures) {
                    if (capture.depth > 0) {
                        capture.text->append(reader.text());
                    }
                }
            }
            break;
        default:
            break;
        }
    }
    if (reader.hasError()) {
        file->m_items.clear();
        file->m_error = reader.errorString();
        file->m_errorLine = reader.lineNumber();
        file->m_errorColumn = reader.columnNumber();
    }
    return file;
}

void NodeMapFilterFile::clearCache()
{
    cache().clear();
}

QString NodeMapFilterFile::takeProblemReport()
{
    if (isValid() || m_problemReported) {
        return QString();
    }
    m_problemReported = true;
    return tr("The filter file %1 was not used: line %2, column %3: %4")
        .arg(m_path)
        .arg(m_errorLine)
        .arg(m_errorColumn)
        .arg(m_error);
}
