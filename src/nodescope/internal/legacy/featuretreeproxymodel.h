#pragma once

#include "ifeaturetreemodelextension.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QSortFilterProxyModel>
#include <QVector>

class FeatureTreeModel;

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace Model {
class CFeatureTableModel;
} // namespace Model
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin

// Decides which rows a view shows, by visibility level, availability and an optional list of
// parameters, and counts what the level hides. Sits over the feature tree or the feature table
// and passes every model operation through, so callers can hold either.
class FeatureTreeProxyModel : public QSortFilterProxyModel, public IFeatureTreeModelExtension {
    Q_OBJECT
public:
    explicit FeatureTreeProxyModel(QObject* parent = nullptr);

    void setSourceModel(QAbstractItemModel* model) override;
    void
    addParameterCollection(QSharedPointer<ParameterCollection::IParameterCollection> collection,
                           const QString& name, const QString& prefix, bool utf8Encoded);
    // The feature table's rows: items of the tree model, handed over by the feature tree widget.
    void addParameterCollection(QList<QObject*> items, bool utf8Encoded);
    FeatureTreeModel* getFeatureTreeModel() const;
    Plugin::Nodescope::Internal::Model::CFeatureTableModel* getFeatureTableModel() const;

    int getVisibleMatchCount() const { return m_visibleMatches.size(); }
    int getInvisibleMatchCount() const { return m_invisibleMatches.size(); }
    bool getShowUnavailableParameters() const { return m_showUnavailable; }

    // IFeatureTreeModelExtension
    QModelIndex indexForItem(FeatureTreeItem* item, int column) const override;
    void enablePolling(bool on) override;
    bool getPolling() const override;
    void setDeviceAlive(bool alive) override;
    QModelIndex findItem(const FeatureTreeItem* item, const FeatureTreeItem* start,
                         int column) const override;
    QModelIndex findItemByFullName(const QString& fullName, FeatureTreeItem* start,
                                   int column) const override;
    QModelIndex findItemByRole(int role, const QVariant& value, FeatureTreeItem* start,
                               int column) const override;
    void setParameterFilterList(const QList<ParameterCollection::ParameterName>& names) override;
    void getParameterFilterList(QList<ParameterCollection::ParameterName>& names) const override;
    QList<ParameterCollection::ParameterName> getParameterFilterList() const
    {
        return m_parameterFilterList;
    }
    void setParameterHighlightList(const QList<ParameterCollection::ParameterName>& names) override;
    void setSearchRegExp(QString text) override;
    void setShowUnavailableParameters(const bool& show) override;
    void refresh(QList<ParameterCollection::ParameterName> names) override;
    void addChildren(FeatureTreeINodeItem* parentItem,
                     QSharedPointer<ParameterCollection::IParameter> parameter) override;
    void setVisibility(GenApi::EVisibility visibility) override;
    GenApi::EVisibility getVisibility() const override { return m_visibility; }
    void setMonitorMode(bool on) override;
    void setGenICamCallbacksEnable(bool on) override;
    bool getGenICamCallbackEnable() const override;
    FeatureTreeItem* getFeatureTreeItem(const QModelIndex& index) const override;
    void setHighlighter(FeatureTreeHighlighter* highlighter) override;
    void refreshSpecialItems() override;
    bool isUtf8Encoded() const override;
    void clear() override;
    void onNodeUpdated(int column, FeatureTreeINodeItem* item) override;
    void onTimerPoll() override;
    QString getParameterCollectionName(
        QSharedPointer<ParameterCollection::IParameterCollection> collection) const override;
    void setParameterHighlightListRecursive(
        FeatureTreeINodeItem* item,
        const QList<ParameterCollection::ParameterName>& names) override;
    void setSearchRegExpRecursive(FeatureTreeINodeItem* item, const QString& text) override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    IFeatureTreeModelExtension* source() const;
    void refilter();
    bool filterAcceptsRowItself(int sourceRow, const QModelIndex& sourceParent,
                                bool asDescendant) const;
    struct RowFacts {
        const FeatureTreeItem* item = nullptr;
        QModelIndex index;
        bool visible = false;
        bool category = false;
        bool searched = false;
        int visibility = GenApi::_UndefinedVisibility;
        QString fullName() const;
    };
    RowFacts rowFacts(const QModelIndex& index) const;
    bool hasAcceptedChildren(int sourceRow, const QModelIndex& sourceParent, int depth) const;

    bool m_passThrough = false;
    GenApi::EVisibility m_visibility = GenApi::Guru;
    // The features accepted, and those refused only for their level, in the last pass. A row
    // is judged more than once per pass, and one feature may stand in two categories, hence
    // sets. Keyed by the feature where the row has one (cheap), else by full name. Every pass
    // fills them anew, so the features go into open-addressed slots that are kept between
    // passes: a pass allocates nothing.
    class MatchSet {
    public:
        void insert(const void* feature, const QString& fullName);
        void clear();
        int size() const { return m_featureCount + m_names.size(); }

    private:
        void grow();
        QVector<const void*> m_slots; // null marks a free slot; the size is a power of two
        int m_featureCount = 0;
        QSet<QString> m_names;
    };
    mutable MatchSet m_visibleMatches;
    mutable MatchSet m_invisibleMatches;
    QList<ParameterCollection::ParameterName> m_parameterFilterList;
    QSet<QString> m_parameterFilterSet; // the list again, for lookups per row
    QList<ParameterCollection::ParameterName> m_secondList;
    bool m_showUnavailable = false;
    const QAbstractItemModel* m_sourceModel = nullptr; // compared only, never followed
    IFeatureTreeModelExtension* m_source = nullptr;    // not owned: the source model
    bool m_treeSource = false;
};
