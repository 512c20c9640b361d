#pragma once

#include <parametercollection/iparametercollection.h>

#include <QTextStream>

namespace VantoViewer {

// Writes every node map of a collection as an indented tree: one line per category or
// feature with its display name, feature name, type, access mode and value.
class FeatureDump {
public:
    explicit FeatureDump(QTextStream& out) : m_out(out) {}

    // Returns the number of features written (categories not counted).
    int write(const ParameterCollection::IParameterCollection& collection);

    int categoryCount() const { return m_categories; }

private:
    void writeNode(const ParameterCollection::IParameterCollection& collection,
                   const QString& fullName, int depth);

    QTextStream& m_out;
    int m_features = 0;
    int m_categories = 0;
};

} // namespace VantoViewer
