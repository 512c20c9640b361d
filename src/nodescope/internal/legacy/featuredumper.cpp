#include "featuredumper.h"

#include "featuretreeinodeitem.h"

#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parameterdata.h>

#include <QVector>

using namespace ParameterCollection;

FeatureDumper::FeatureDumper(const QSharedPointer<IParameterCollection>& collection)
    : m_collection(collection)
{}

void FeatureDumper::dumpCategory(const QString& fullName, int depth, QStringList& lines)
{
    if (!m_collection) {
        return;
    }
    m_characters = 0;
    for (const QString& line : qAsConst(lines)) {
        m_characters += line.size() + 1;
    }
    QVector<Frame> stack;
    // The categories on the way down: a description whose categories loop is cut at the repeat.
    QSet<QString> path;
    try {
        stack.append({fullName, m_collection->getChildren(fullName), 0, depth});
    } catch (...) {
        return;
    }
    path.insert(fullName);
    while (!stack.isEmpty() && !m_truncated) {
        Frame& frame = stack.last();
        if (frame.next >= frame.children.size()) {
            path.remove(frame.fullName);
            stack.removeLast();
            continue;
        }
        const QString child = frame.children.at(frame.next++);
        const int childDepth = frame.depth;
        QSharedPointer<IParameter> parameter;
        QSharedPointer<const ParameterData> data;
        try {
            parameter = m_collection->getParameter(child);
            if (!parameter || parameter->isNull()) {
                continue;
            }
            data = parameter->getParameterData();
        } catch (...) {
            continue;
        }
        const QString indent(qMin(childDepth, kMaxIndentDepth) * 2, QLatin1Char(' '));
        const QString label = labelOf(*parameter, child);
        if (!data || data->type != CategoryType) {
            append(lines, indent + label + QLatin1Char('\t') + valueOf(data));
            continue;
        }
        if (!append(lines, indent + label) || path.contains(child)) {
            continue;
        }
        int& expansions = m_expansions[child];
        if (expansions >= kMaxExpansions) {
            append(
                lines,
                indent + QStringLiteral("  ") +
                    tr("[contents left out: listed in full %1 times above]").arg(kMaxExpansions));
            continue;
        }
        QStringList children;
        try {
            children = m_collection->getChildren(child);
        } catch (...) {
            continue;
        }
        ++expansions;
        path.insert(child);
        // `frame` is not used past this point: the append may move it.
        stack.append({child, children, 0, childDepth + 1});
    }
}

bool FeatureDumper::append(QStringList& lines, QString line)
{
    if (m_truncated) {
        return false;
    }
    if (line.size() > kMaxLineCharacters) {
        line.truncate(kMaxLineCharacters);
        line += QChar(0x2026);
    }
    if (m_characters + line.size() + 1 > kMaxCharacters) {
        m_truncated = true;
        lines.append(tr("[the list ends here: the rest would make the text longer than %1 "
                        "characters]")
                         .arg(kMaxCharacters));
        return false;
    }
    m_characters += line.size() + 1;
    lines.append(line);
    return true;
}

QString FeatureDumper::labelOf(const IParameter& parameter, const QString& fullName)
{
    QString label;
    QString unit;
    try {
        label = parameter.getProperty(QStringLiteral("DisplayName"));
        if (label.isEmpty()) {
            label = parameter.getFeatureName();
        }
        unit = parameter.getProperty(QStringLiteral("Unit"));
    } catch (...) {
        // The name is enough to find the feature again.
    }
    if (label.isEmpty()) {
        label = ParameterName(fullName).feature();
    }
    if (!unit.isEmpty()) {
        label += QStringLiteral(" [%1]").arg(unit);
    }
    return label;
}

// As the tree shows it, less the unit, which the label carries.
QString FeatureDumper::valueOf(const QSharedPointer<const ParameterData>& data)
{
    if (!data) {
        return FeatureTreeINodeItem::tr("<not available>");
    }
    // As in the tree: a value that could not be read reads as its reason.
    if (data->hasError() && !data->readable) {
        return data->errorText;
    }
    if (!data->implemented) {
        return FeatureTreeINodeItem::tr("<not implemented>");
    }
    // A command has no value worth comparing between cameras.
    if (data->type == CommandType && data->available) {
        return QString();
    }
    if (data->readable) {
        return data->displayText.isEmpty() ? data->value.toString() : data->displayText;
    }
    if (data->available) {
        return FeatureTreeINodeItem::tr("<not readable>");
    }
    return FeatureTreeINodeItem::tr("<not available>");
}
