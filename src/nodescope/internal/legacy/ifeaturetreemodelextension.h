#pragma once

#include <genapi/genapitypes.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parametername.h>

#include <QList>
#include <QModelIndex>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

class FeatureTreeItem;
class FeatureTreeINodeItem;
class FeatureTreeHighlighter;

// What items, proxies, views and widgets need from a feature model beyond QAbstractItemModel.
// The tree model, the feature table model and the proxy over either implement it, so callers
// need not know which one they hold.
class IFeatureTreeModelExtension {
public:
    virtual ~IFeatureTreeModelExtension() = default;

    virtual QModelIndex indexForItem(FeatureTreeItem* item, int column) const = 0;
    virtual void enablePolling(bool on) = 0;
    virtual bool getPolling() const = 0;
    virtual void setDeviceAlive(bool alive) = 0;
    virtual QModelIndex findItem(const FeatureTreeItem* item, const FeatureTreeItem* start,
                                 int column) const = 0;
    virtual QModelIndex findItemByFullName(const QString& fullName, FeatureTreeItem* start,
                                           int column) const = 0;
    virtual QModelIndex findItemByRole(int role, const QVariant& value, FeatureTreeItem* start,
                                       int column) const = 0;
    virtual void setParameterFilterList(const QList<ParameterCollection::ParameterName>& names) = 0;
    virtual void getParameterFilterList(QList<ParameterCollection::ParameterName>& names) const = 0;
    virtual void
    setParameterHighlightList(const QList<ParameterCollection::ParameterName>& names) = 0;
    virtual void setSearchRegExp(QString text) = 0;
    virtual void setShowUnavailableParameters(const bool& show) = 0;
    virtual void refresh(QList<ParameterCollection::ParameterName> names) = 0;
    virtual void addChildren(FeatureTreeINodeItem* parentItem,
                             QSharedPointer<ParameterCollection::IParameter> parameter) = 0;
    virtual void setVisibility(GenApi::EVisibility visibility) = 0;
    virtual GenApi::EVisibility getVisibility() const = 0;
    virtual void setMonitorMode(bool on) = 0;
    virtual void setGenICamCallbacksEnable(bool on) = 0;
    virtual bool getGenICamCallbackEnable() const = 0;
    virtual FeatureTreeItem* getFeatureTreeItem(const QModelIndex& index) const = 0;
    virtual void setHighlighter(FeatureTreeHighlighter* highlighter) = 0;
    virtual void refreshSpecialItems() = 0;
    virtual bool isUtf8Encoded() const = 0;
    virtual void clear() = 0;
    virtual void onNodeUpdated(int column, FeatureTreeINodeItem* item) = 0;
    virtual void onTimerPoll() = 0;
    virtual QString getParameterCollectionName(
        QSharedPointer<ParameterCollection::IParameterCollection> collection) const = 0;
    virtual void
    setParameterHighlightListRecursive(FeatureTreeINodeItem* item,
                                       const QList<ParameterCollection::ParameterName>& names) = 0;
    virtual void setSearchRegExpRecursive(FeatureTreeINodeItem* item, const QString& text) = 0;
};
