#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

namespace Backend {

// A camera's configuration as a text file of our own: a header naming the camera, then one
// "Name = Value" line per feature, selected features in blocks under their selector values.
// Values are in the form the parameter layer reads and writes. Parsing and writing need no
// device; docs/feature-sets.md describes the format.
class FeatureSet {
public:
    static constexpr int kFormatVersion = 1;
    // Anything longer is no feature set this viewer wrote, nor one a person edits.
    static constexpr qint64 kMaxFileBytes = 16 * 1024 * 1024;
    static constexpr int kMaxLineBytes = 256 * 1024;

    using Selectors = QVector<QPair<QString, QString>>; // selector name, value; outer first

    struct Line {
        int lineNumber = 0; // in the file; 0 for a set never written to one
        Selectors selectors;
        QString feature;
        QString value;
        bool quoted = false; // a string's value, written in quotes
    };

    // One feature whose values differ, or that only one side has.
    struct Difference {
        enum class Side { Both, LeftOnly, RightOnly };
        QString name;    // "Gain" or "Gain [GainSelector = AnalogAll]"
        QString feature; // "Gain"
        QString left;
        QString right;
        Side side = Side::Both;
    };

    QString vendor;
    QString model;
    QString serial;
    QString time; // ISO 8601, UTC
    QVector<Line> lines;

    // Throws ParameterCollection::InvalidArgumentException naming `source` and, where it can,
    // the line, when the bytes are not a whole feature set: not text, truncated, an unknown
    // header or version, too long, a malformed line.
    static FeatureSet parse(const QByteArray& bytes, const QString& source);
    // The same from a file, refusing one of absurd length before reading it.
    static FeatureSet read(const QString& fileName);
    QByteArray toText() const;

    // "Gain [GainSelector = AnalogAll]": a line's name with its selector values.
    static QString qualifiedName(const Line& line);
    // The features whose values differ, and those found on one side only, sorted by name.
    static QVector<Difference> compare(const FeatureSet& left, const FeatureSet& right);

    // Quoted text with backslash escapes, as string values are written.
    static QString quoted(const QString& text);
};

} // namespace Backend
