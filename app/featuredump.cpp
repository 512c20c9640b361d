#include "featuredump.h"

#include <genapi/genapitypes.h>

using namespace ParameterCollection;

namespace VantoViewer {

namespace {

// Only for a node whose structure names no GenICam element.
QString typeCodeName(int type)
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
    case RegisterType:
        return QStringLiteral("Register");
    default:
        return QStringLiteral("Unknown");
    }
}

// One line per feature and one column per field: line breaks and tabs inside a text are
// written as escapes, and a very long text is cut with a note.
QString bounded(const QString& text)
{
    QString shown = text.left(FeatureDump::MAX_VALUE_CHARS);
    shown.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    shown.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    shown.replace(QLatin1Char('\r'), QStringLiteral("\\r"));
    shown.replace(QLatin1Char('\t'), QStringLiteral("\\t"));
    if (text.size() > FeatureDump::MAX_VALUE_CHARS) {
        shown += QStringLiteral("... <%1 more characters>")
                     .arg(text.size() - FeatureDump::MAX_VALUE_CHARS);
    }
    return shown;
}

QString plainValueText(const ParameterData& data)
{
    if (data.hasError()) {
        return QStringLiteral("<error: %1>").arg(bounded(data.errorText));
    }
    if (!data.implemented) {
        return QStringLiteral("<not implemented>");
    }
    if (!data.available) {
        return QStringLiteral("<not available>");
    }
    if (!data.readable) {
        return QStringLiteral("<not readable>");
    }
    if (data.type == CommandType) {
        return static_cast<const CommandParameterData&>(data).done ? QStringLiteral("(done)")
                                                                   : QStringLiteral("(running)");
    }
    QString text = bounded(data.displayText);
    if (!data.unit.isEmpty()) {
        text += QLatin1Char(' ') + data.unit;
    }
    return text;
}

} // namespace

QString FeatureDump::valueText(const ParameterData& data)
{
    const QString text = plainValueText(data);
    // What a lost device shows is what it said last, not what it holds now.
    return data.deviceLost ? text + QStringLiteral(" <device lost>") : text;
}

int FeatureDump::write(const IParameterCollection& collection)
{
    m_features = 0;
    m_categories = 0;
    m_errors = 0;
    m_firstLossReason.clear();
    m_expansions.clear();
    m_path.clear();
    m_lines = 0;
    m_cut = false;
    for (const QString& nodeMap : collection.getNodeMapNames()) {
        if (!writeLine(QStringLiteral("@") + nodeMap)) {
            break;
        }
        writeNode(collection, QLatin1Char('@') + nodeMap + QStringLiteral("/Root"), 1);
    }
    if (m_cut) {
        m_out << "... the dump stops here: it reached " << m_maxLines << " lines\n";
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
    if (data->type == CategoryType) {
        writeCategory(collection, *parameter, fullName, depth);
        return;
    }
    const QString indent(2 * depth, QLatin1Char(' '));
    if (m_cut) {
        return;
    }
    ++m_features;
    if (data->hasError()) {
        ++m_errors;
        if (m_firstLossReason.isEmpty() &&
            (data->deviceLost || data->errorKind == Exception::DeviceLost)) {
            m_firstLossReason = data->errorText;
        }
    }
    QString type = parameter->getProperty(QStringLiteral("Type"));
    if (type.isEmpty()) {
        type = typeCodeName(data->type);
    }
    writeLine(indent + parameter->getProperty(QStringLiteral("DisplayName")) +
              QStringLiteral(" (") + parameter->getFeatureName() + QStringLiteral(")\t") + type +
              QLatin1Char('\t') + GenApi::accessModeToString(data->accessMode) + QLatin1Char('\t') +
              valueText(*data));
}

void FeatureDump::writeCategory(const IParameterCollection& collection, const IParameter& category,
                                const QString& fullName, int depth)
{
    if (m_cut) {
        return;
    }
    QString line;
    if (depth > 1) {
        line = QString(2 * depth, QLatin1Char(' ')) +
               category.getProperty(QStringLiteral("DisplayName")) + QStringLiteral(" (") +
               category.getFeatureName() + QLatin1Char(')');
    }
    QString note;
    if (depth > MAX_DEPTH) {
        note = QStringLiteral("\t<nested deeper than %1 levels: not expanded>").arg(MAX_DEPTH);
    } else if (m_path.contains(fullName)) {
        note = QStringLiteral("\t<contains itself: not expanded again>");
    } else if (m_expansions.value(fullName) >= MAX_EXPANSIONS) {
        note = QStringLiteral("\t<shared: written in full %1 times above, not again>")
                   .arg(MAX_EXPANSIONS);
    }
    if (!line.isEmpty() && !writeLine(line + note)) {
        return;
    }
    if (!note.isEmpty()) {
        return;
    }
    ++m_expansions[fullName];
    ++m_categories;
    m_path.insert(fullName);
    for (const QString& child : collection.getChildren(fullName)) {
        writeNode(collection, child, depth + 1);
    }
    m_path.remove(fullName);
}

bool FeatureDump::writeLine(const QString& line)
{
    if (m_cut || m_lines >= m_maxLines) {
        m_cut = true;
        return false;
    }
    ++m_lines;
    m_out << line << "\n";
    return true;
}

} // namespace VantoViewer
