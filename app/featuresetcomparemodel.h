#pragma once

#include <featureset.h>

#include <QAbstractTableModel>
#include <QVector>

namespace VantoViewer {

// The features in which two feature sets differ, one row each: the feature with its selector
// values, the left and right values, and the side that alone has the feature.
class FeatureSetCompareModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { FeatureColumn, LeftColumn, RightColumn, OnlyInColumn, ColumnCount };
    // The row's feature name without its selectors, "Gain".
    static constexpr int FeatureNameRole = Qt::UserRole + 1;

    explicit FeatureSetCompareModel(QObject* parent = nullptr);

    // `left` and `right` title the value columns and name the side in the last column.
    void setDifferences(const QVector<Backend::FeatureSet::Difference>& differences,
                        const QString& left, const QString& right);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QVector<Backend::FeatureSet::Difference> m_differences;
    QString m_left;
    QString m_right;
};

} // namespace VantoViewer
