#include "featuresetloadcommand.h"

#include <QHash>

namespace VantoViewer {

using Backend::FeatureSet;
using Backend::FeatureSetTransfer;

FeatureSetLoadCommand::FeatureSetLoadCommand(const QString& text,
                                             const FeatureSetTransfer::LoadReport& report)
{
    setText(text);
    // A feature that the load wrote twice (a file that names it twice) was first what it was
    // before the load, and last what the load left.
    QHash<QString, int> lineOf;
    for (const FeatureSetTransfer::Applied& applied : report.applied) {
        FeatureSet::Line line;
        line.selectors = applied.selectors;
        line.feature = applied.fullName.section(QLatin1Char('/'), -1);
        const QString key = FeatureSet::qualifiedName(line);
        const auto found = lineOf.constFind(key);
        if (found != lineOf.cend()) {
            m_after.lines[*found].value = applied.written;
            continue;
        }
        lineOf.insert(key, m_before.lines.size());
        line.value = applied.before;
        m_before.lines.append(line);
        line.value = applied.written;
        m_after.lines.append(line);
    }
}

} // namespace VantoViewer
