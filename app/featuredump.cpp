#include "featuredump.h"

#include <genapi/genapitypes.h>

using namespace ParameterCollection;

namespace VantoViewer {

static QString typeName(int type)
{
    switch (type) {
    case IntegerType:
        return QStringLiteral("Integer");
    case BooleanType:
        return QStringLiteral("Boolean");
    case FloatType:
        return QStringLiteral("Float");
    case CommandType:
        return QStringLiteral("Command");
    case StringType:
        return QStringLiteral("String");
    case EnumerationType:
        return QStringLiteral("Enumeration");
    case CategoryType:
        return QStringLiteral("Category");
    default:
        return QStringLiteral("Node");
    }
}

static QString valueText(const ParameterData& data)
{
    if (!data.implemented) {
        return QStringLiteral("<not implemented>");
    }
    if (!data.available) {
        return QStringLiteral("<not available>");
    }
    if (data.type == CommandType) {
        return static_cast<const CommandParameterData&>(data).done ? QStringLiteral("(done)")
                                                                   : QStringLiteral("(running)");
    }
    if (!data.readable) {
        return QStringLiteral("<not readable>");
    }
    QString text = data.displayText;
    if (!data.unit.isEmpty()) {
        text += QLatin1Char(' ') + data.unit;
    }
    return text;
}

int FeatureDump::write(const IParameterCollection& collection)
{
    m_features = 0;
    m_categories = 0;
    for (const QString& nodeMap : collection.getNodeMapNames()) {
        m_out << "@" << nodeMap << "\n";
        writeNode(collection, QLatin1Char('@') + nodeMap + QStringLiteral("/Root"), 1);
    }
    m_out.flush();
    return m_features;
}

void FeatureDump::writeNode(const IParameterCollection& collection, const QString& fullName,
                            int depth)
{
    const auto parameter = collection.getParameter(fullName);
    if (!parameter) {
        return;
    }
    const auto data = parameter->getParameterData();
    const QString indent(2 * depth, QLatin1Char(' '));
    if (data->type == CategoryType) {
        if (depth > 1) {
            m_out << indent << parameter->getProperty(QStringLiteral("DisplayName")) << " ("
                  << parameter->getFeatureName() << ")\n";
        }
        ++m_categories;
        for (const QString& child : collection.getChildren(fullName)) {
            writeNode(collection, child, depth + 1);
        }
        return;
    }
    ++m_features;
    m_out << indent << parameter->getProperty(QStringLiteral("DisplayName")) << " ("
          << parameter->getFeatureName() << ")\t" << typeName(data->type) << "\t"
          << GenApi::accessModeToString(data->accessMode) << "\t" << valueText(*data) << "\n";
}

} // namespace VantoViewer
