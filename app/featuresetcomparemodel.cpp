#include "featuresetcomparemodel.h"

namespace VantoViewer {

using Side = Backend::FeatureSet::Difference::Side;

FeatureSetCompareModel::FeatureSetCompareModel(QObject* parent) : QAbstractTableModel(parent) {}

void FeatureSetCompareModel::setDifferences(
    const QVector<Backend::FeatureSet::Difference>& differences, const QString& left,
    const QString& right)
{
    beginResetModel();
    m_differences = differences;
    m_left = left;
    m_right = right;
    endResetModel();
    Q_EMIT headerDataChanged(Qt::Horizontal, LeftColumn, RightColumn);
}

int FeatureSetCompareModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_differences.size();
}

int FeatureSetCompareModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FeatureSetCompareModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return QVariant();
    }
    const auto& d = m_differences.at(index.row());
    if (role == FeatureNameRole) {
        return d.feature;
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return QVariant();
    }
    switch (index.column()) {
    case FeatureColumn:
        return d.name;
    case LeftColumn:
        return d.side == Side::RightOnly ? QVariant() : QVariant(d.left);
    case RightColumn:
        return d.side == Side::LeftOnly ? QVariant() : QVariant(d.right);
    case OnlyInColumn:
        return d.side == Side::LeftOnly    ? QVariant(m_left)
               : d.side == Side::RightOnly ? QVariant(m_right)
                                           : QVariant();
    default:
        return QVariant();
    }
}

QVariant FeatureSetCompareModel::headerData(int section, Qt::Orientation orientation,
                                            int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    switch (section) {
    case FeatureColumn:
        return tr("Feature");
    case LeftColumn:
        return m_left;
    case RightColumn:
        return m_right;
    case OnlyInColumn:
        return tr("Only In");
    default:
        return QVariant();
    }
}

} // namespace VantoViewer
