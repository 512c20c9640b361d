#pragma once

#include "changejournal.h"

#include <QAbstractTableModel>
#include <QPointer>

namespace VantoViewer {

// The change journal of the active camera as a table, oldest first: time, feature, old value,
// new value and result. Follows the journal's active camera.
class ChangesModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { TimeColumn, FeatureColumn, OldValueColumn, NewValueColumn, ResultColumn };
    static constexpr int COLUMN_COUNT = 5;
    // The entry's full feature name (or its group's title), for views that select features.
    static constexpr int FULL_NAME_ROLE = Qt::UserRole + 1;
    // True when the camera did not take the write.
    static constexpr int REFUSED_ROLE = Qt::UserRole + 2;

    explicit ChangesModel(ChangeJournal* journal, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QString resultText(const ChangeJournal::Entry& entry) const;
    QString valueText(const ChangeJournal::Entry& entry, int column) const;
    void reload();

    QPointer<ChangeJournal> m_journal;
    QVector<ChangeJournal::Entry> m_entries; // the active camera's, as the journal has them
};

} // namespace VantoViewer
