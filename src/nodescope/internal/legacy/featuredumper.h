#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

namespace ParameterCollection {
class IParameter;
class IParameterCollection;
struct ParameterData;
} // namespace ParameterCollection

// Writes a collection's features as indented text, one per line, the way the camera's
// description orders them. The description decides the shape, so the walk keeps its own stack
// and bounds what it writes: a sub-category that several categories share is written out in
// full only a few times, and the text stops, with a note, before it outgrows the clipboard.
class FeatureDumper {
    Q_DECLARE_TR_FUNCTIONS(FeatureDumper)
public:
    // Together, enough for every real camera many times over.
    static const int kMaxCharacters = 8 * 1024 * 1024;
    static const int kMaxLineCharacters = 4096;
    // A shared sub-category is written in full this often; later places get a note.
    static const int kMaxExpansions = 4;
    // Deeper categories are indented as this depth; their order still shows the nesting.
    static const int kMaxIndentDepth = 32;

    explicit FeatureDumper(
        const QSharedPointer<ParameterCollection::IParameterCollection>& collection);

    // Appends the features below the category `fullName` to `lines`, indented from `depth`;
    // what `lines` already holds counts against the size bound.
    void dumpCategory(const QString& fullName, int depth, QStringList& lines);
    // Whether the size bound cut the text.
    bool truncated() const { return m_truncated; }

private:
    struct Frame {
        QString fullName;
        QStringList children;
        int next = 0;
        int depth = 0;
    };

    bool append(QStringList& lines, QString line);
    static QString labelOf(const ParameterCollection::IParameter& parameter,
                           const QString& fullName);
    static QString valueOf(const QSharedPointer<const ParameterCollection::ParameterData>& data);

    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    QHash<QString, int> m_expansions;
    qint64 m_characters = 0;
    bool m_truncated = false;
};
