#pragma once

#include <parametercollection/iparametercollection.h>

#include <QHash>
#include <QSet>
#include <QTextStream>

namespace VantoViewer {

// Writes every node map of a collection as an indented tree: one line per category or
// feature with its display name, feature name, GenICam node type, access mode and value.
class FeatureDump {
public:
    // Value texts longer than this are cut, with a note of how much was left out, so that a
    // huge register or string cannot flood the terminal.
    static constexpr int MAX_VALUE_CHARS = 256;
    // A category shared by many others is written in full this often, then named with a note:
    // shared categories nested a few dozen levels deep would otherwise multiply without end.
    static constexpr int MAX_EXPANSIONS = 16;
    // The whole dump stops with a note after this many lines.
    static constexpr int MAX_LINES = 200000;
    // Categories deeper than this are named, not expanded; the dump recurses on the stack.
    static constexpr int MAX_DEPTH = 1000;

    explicit FeatureDump(QTextStream& out, int maxLines = MAX_LINES)
        : m_out(out), m_maxLines(maxLines)
    {}

    // Returns the number of features written (categories not counted).
    int write(const ParameterCollection::IParameterCollection& collection);

    int categoryCount() const { return m_categories; }
    int errorCount() const { return m_errors; }
    // The first reason the device gave for a value it could not deliver because it was gone.
    QString firstLossReason() const { return m_firstLossReason; }

    // The value column of one feature: its value, or why there is none.
    static QString valueText(const ParameterCollection::ParameterData& data);

private:
    void writeNode(const ParameterCollection::IParameterCollection& collection,
                   const QString& fullName, int depth);
    void writeCategory(const ParameterCollection::IParameterCollection& collection,
                       const ParameterCollection::IParameter& category, const QString& fullName,
                       int depth);
    // False once the dump is full: nothing more is written.
    bool writeLine(const QString& line);

    QTextStream& m_out;
    int m_maxLines;
    int m_features = 0;
    int m_categories = 0;
    int m_errors = 0;
    QString m_firstLossReason;
    QHash<QString, int> m_expansions; // categories written in full so far, by full name
    QSet<QString> m_path;             // the categories from the root to the node being written
    int m_lines = 0;
    bool m_cut = false;
};

} // namespace VantoViewer
