#include "changesmodel.h"

#include <QBrush>
#include <QColor>
#include <QLocale>

namespace VantoViewer {

ChangesModel::ChangesModel(ChangeJournal* journal, QObject* parent)
    : QAbstractTableModel(parent), m_journal(journal)
{
    if (!m_journal) {
        return;
    }
    m_entries = m_journal->activeEntries();
    connect(m_journal, &ChangeJournal::activeCameraChanged, this, &ChangesModel::reload);
    connect(m_journal, &ChangeJournal::entryAdded, this,
            [this](const Plugin::CameraPool::IBaseInfo* camera, int row) {
                if (camera != m_journal->activeCamera() || row != m_entries.size()) {
                    return;
                }
                beginInsertRows(QModelIndex(), row, row);
                m_entries.append(m_journal->activeEntries().at(row));
                endInsertRows();
            });
    connect(m_journal, &ChangeJournal::entryChanged, this,
            [this](const Plugin::CameraPool::IBaseInfo* camera, int row) {
                if (camera != m_journal->activeCamera() || row < 0 || row >= m_entries.size()) {
                    return;
                }
                m_entries[row] = m_journal->activeEntries().at(row);
                Q_EMIT dataChanged(index(row, 0), index(row, COLUMN_COUNT - 1));
            });
}

void ChangesModel::reload()
{
    beginResetModel();
    m_entries = m_journal ? m_journal->activeEntries() : QVector<ChangeJournal::Entry>();
    endResetModel();
}

int ChangesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int ChangesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMN_COUNT;
}

QString ChangesModel::valueText(const ChangeJournal::Entry& entry, int column) const
{
    if (entry.groupSize > 0) {
        return column == NewValueColumn ? entry.newText : QString();
    }
    if (entry.command) {
        return column == NewValueColumn ? tr("Execute") : QString();
    }
    if (column == OldValueColumn) {
        return entry.oldKnown ? entry.oldText : tr("(not read)");
    }
    return entry.newText;
}

QString ChangesModel::resultText(const ChangeJournal::Entry& entry) const
{
    using Origin = ChangeJournal::Origin;
    // An undo or redo of a step of many features says whether it went back.
    if (entry.groupSize > 0 && entry.origin == Origin::Batch) {
        return tr("Applied as one step");
    }
    switch (entry.origin) {
    case Origin::Undo:
        return entry.done ? tr("Undone") : tr("Undo refused: %1").arg(entry.reason);
    case Origin::Redo:
        return entry.done ? tr("Redone") : tr("Redo refused: %1").arg(entry.reason);
    case Origin::Batch:
        return entry.done ? tr("Done (feature set)")
                          : tr("Refused (feature set): %1").arg(entry.reason);
    case Origin::User:
        break;
    }
    return entry.done ? tr("Done") : tr("Refused: %1").arg(entry.reason);
}

QVariant ChangesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_entries.size() || index.column() >= COLUMN_COUNT) {
        return {};
    }
    const ChangeJournal::Entry& entry = m_entries.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case TimeColumn:
            return entry.time.toString(QStringLiteral("HH:mm:ss.zzz"));
        case FeatureColumn:
            return entry.groupSize > 0 ? entry.feature
                                       : entry.feature.section(QLatin1Char('/'), -1);
        case OldValueColumn:
        case NewValueColumn:
            return valueText(entry, index.column());
        case ResultColumn:
            return resultText(entry);
        default:
            return {};
        }
    case Qt::ToolTipRole:
        switch (index.column()) {
        case TimeColumn:
            return QLocale().toString(entry.time, QLocale::LongFormat);
        case FeatureColumn:
            return entry.feature;
        default:
            return data(index, Qt::DisplayRole);
        }
    case Qt::ForegroundRole:
        if (!entry.done && index.column() == ResultColumn) {
            return QBrush(QColor(Qt::red));
        }
        return {};
    case FULL_NAME_ROLE:
        return entry.feature;
    case REFUSED_ROLE:
        return !entry.done;
    default:
        return {};
    }
}

QVariant ChangesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case FeatureColumn:
        return tr("Feature");
    case OldValueColumn:
        return tr("Old Value");
    case NewValueColumn:
        return tr("New Value");
    case ResultColumn:
        return tr("Result");
    default:
        return {};
    }
}

} // namespace VantoViewer
