#include "featurewritecommand.h"

namespace VantoViewer {

namespace {
// Every single-feature step shares one id, so that the stack offers each to mergeWith().
constexpr int SINGLE_FEATURE_ID = 0x4a524e4c;
} // namespace

FeatureWriteCommand::FeatureWriteCommand(const QString& text, QVector<Change> changes,
                                         const QDateTime& issued, int mergeWindowMs)
    : m_changes(std::move(changes)), m_lastIssued(issued), m_mergeWindowMs(mergeWindowMs),
      m_group(m_changes.size() != 1)
{
    setText(text);
}

int FeatureWriteCommand::id() const
{
    return m_group ? -1 : SINGLE_FEATURE_ID;
}

bool FeatureWriteCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const FeatureWriteCommand*>(other);
    if (!later || m_group || later->m_group || m_mergeWindowMs <= 0 ||
        later->m_changes.first().fullName != m_changes.first().fullName) {
        return false;
    }
    const qint64 gap = m_lastIssued.msecsTo(later->m_lastIssued);
    if (gap < 0 || gap > m_mergeWindowMs) {
        return false;
    }
    m_changes.first().newValue = later->m_changes.first().newValue;
    m_changes.first().newText = later->m_changes.first().newText;
    m_lastIssued = later->m_lastIssued;
    setText(later->text());
    return true;
}

} // namespace VantoViewer
