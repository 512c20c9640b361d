#pragma once

#include "featuretreeitem.h"

#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parameterdata.h>

#include <QColor>
#include <QSharedPointer>

class FeatureTreeHighlighter;
class SearchMatcher;

// A row that stands for one parameter. It answers from the parameter's latest snapshot, so
// painting never touches the device; children are loaded the first time they are needed.
class FeatureTreeINodeItem : public FeatureTreeItem {
    Q_OBJECT
public:
    FeatureTreeINodeItem(QSharedPointer<ParameterCollection::IParameterCollection> collection,
                         QSharedPointer<ParameterCollection::IParameter> parameter,
                         const QString& name, IFeatureTreeModelExtension* extension,
                         const QString& fullName, FeatureTreeItem* parent, bool utf8Encoded,
                         int level);
    FeatureTreeINodeItem(QSharedPointer<ParameterCollection::IParameterCollection> collection,
                         QSharedPointer<ParameterCollection::IParameter> parameter,
                         IFeatureTreeModelExtension* extension, const QString& fullName,
                         FeatureTreeItem* parent, bool utf8Encoded, int level);
    ~FeatureTreeINodeItem() override;

    FeatureTreeItem* child(int row) override;
    int childCount() override;
    int columnCount() const override;
    void appendChild(FeatureTreeItem* item) override;
    int row() const override;
    FeatureTreeItem* parent() const override;
    bool hasChildren() override;
    void clearChildren() override;

    // Reads only the snapshot, but a property or parameter call may throw: the model guards.
    QVariant data(int column, int role) const override;
    // Writes through the parameter; parameter-layer exceptions reach the caller.
    bool setData(int column, const QVariant& value, int role) override;
    Qt::ItemFlags flags(int column) const override;
    int editorType() const override;
    static int editorType(QSharedPointer<ParameterCollection::IParameter> parameter);
    static int editorType(const FeatureTreeINodeItem* item);
    bool isEditable() const override;
    bool usePersistentEditor() const override;
    bool showMe(GenApi::EVisibility level) const override;
    GenApi::EAccessMode getAccessMode() const override;
    int getVisibility() const override;
    QVariant getForegroundRole() const override;
    IFeatureTreeModelExtension* getExtension() const override;

    QSharedPointer<ParameterCollection::IParameter> node() const { return m_parameter; }
    QSharedPointer<ParameterCollection::IParameterCollection> collection() const
    {
        return m_collection;
    }
    QSharedPointer<const ParameterCollection::ParameterData> getParameterData() const
    {
        return m_data;
    }
    bool isCategory() const override;
    // The camera is gone: the data says so, or the collection learnt it before any new data.
    bool isDeviceLost() const;
    // The data carries a reason why its value could not be read, and no value.
    bool hasReadError() const;
    // The tool tip line of a lost camera's features and editors.
    static QString lostText();
    // The colour of values that are errors: a red that reads on the default palette.
    static QColor errorColour();
    QString getTechnicalName() const override;
    const void* featureKey() const override { return m_parameter.data(); }
    // Whether the node map's texts came UTF-8 encoded; the names arrive decoded either way.
    bool isUtf8Encoded() const { return m_utf8Encoded; }
    void setHighlighter(FeatureTreeHighlighter* highlighter) { m_highlighter = highlighter; }
    FeatureTreeHighlighter* highlighter() const { return m_highlighter; }
    // A name shown in brackets after the displayed one, for rows that need telling apart.
    void setSecondName(const QString& name) { m_secondName = name; }
    QString secondName() const { return m_secondName; }

    // Marks the row found or not by `matcher` (an empty one finds nothing). A row found by its
    // technical name alone shows that name after its displayed one, or the match would make no
    // sense to the user. True when the row's look changed.
    bool applySearch(const SearchMatcher& matcher) override;

    void addNodeUpdatedSignalObserver();
    void removeNodeUpdatedSignalObserver();
    void scheduleForcedParameterDataChangedCheck();

    void onParameterDataChanged(QSharedPointer<const ParameterCollection::ParameterData> data);

Q_SIGNALS:
    // Also delivered straight to the item's extension: a connection per item would cost more
    // memory than the item itself.
    void nodeUpdated(int column, FeatureTreeINodeItem* item);

private:
    void initInternal();
    void announce(int column);
    void loadChildren();
    QString valueText() const;
    QString richToolTip() const;
    QString stateLines() const;
    QVariant foreground(int column) const;

    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    QSharedPointer<ParameterCollection::IParameter> m_parameter;
    QSharedPointer<const ParameterCollection::ParameterData> m_data;
    QString m_technicalName;
    QString m_displayNameString;
    QString m_secondName;
    FeatureTreeHighlighter* m_highlighter = nullptr; // not owned
    bool m_utf8Encoded;
    bool m_childrenLoaded = false;
    bool m_observing = false;
    // The characters of both names (SearchMatcher::charactersOf), 0 until the first search.
    quint32 m_nameCharacters = 0;
};
