#pragma once

#include <parametercollection/iparametercollection.h>

#include <QTextStream>

namespace VantoViewer {

// Writes every node map of a collection as an indented tree: one line per category or
// feature with its display name, feature name, GenICam node type, access mode and value.
class FeatureDump {
public:
    // Value texts longer than this are cut, with a note of how much was left out, so that a
    // huge register or string cannot flood the terminal.
    static constexpr int MAX_VALUE_CHARS = 256;

    explicit FeatureDump(QTextStream& out) : m_out(out) {}

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

    QTextStream& m_out;
    int m_features = 0;
    int m_categories = 0;
    int m_errors = 0;
    QString m_firstLossReason;
};

} // namespace VantoViewer
