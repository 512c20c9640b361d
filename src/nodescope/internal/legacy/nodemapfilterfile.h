#pragma once

#include <QCoreApplication>
#include <QSharedPointer>
#include <QString>
#include <QVector>

class QIODevice;

// One node map filter file as read: its items in document order, or why it could not be read.
// Read with a streaming reader, so that nesting costs no stack, and once per version of a file
// however many cameras and panels ask for it.
class NodeMapFilterFile {
    Q_DECLARE_TR_FUNCTIONS(NodeMapFilterFile)
public:
    // One child element of the document element: the text of the first "Name", "Visibility"
    // and "AccessMode" element found among its descendants, in document order.
    struct Item {
        QString name;
        QString visibility;
        QString accessMode;
        bool hasName = false;
        bool hasVisibility = false;
        bool hasAccessMode = false;
        qint64 line = 0;
    };

    // Filters nest three deep; a file that nests deeper than this is refused as a whole.
    static const int kMaxDepth = 256;

    // The file at `path`, read again only when its modification time or size changed.
    static QSharedPointer<NodeMapFilterFile> load(const QString& path);
    // Reads `device` without the cache.
    static QSharedPointer<NodeMapFilterFile> read(QIODevice& device, const QString& path);
    static void clearCache();

    bool isValid() const { return m_error.isEmpty(); }
    const QVector<Item>& items() const { return m_items; }
    QString path() const { return m_path; }
    QString errorString() const { return m_error; }
    qint64 errorLine() const { return m_errorLine; }
    qint64 errorColumn() const { return m_errorColumn; }

    // What the user is told about a file that could not be used: the file, the line and the
    // reason. Given out once per version of the file; empty afterwards and for a good file.
    QString takeProblemReport();

private:
    QString m_path;
    QVector<Item> m_items;
    QString m_error;
    qint64 m_errorLine = 0;
    qint64 m_errorColumn = 0;
    bool m_problemReported = false;
};
