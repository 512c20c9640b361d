#pragma once

#include <genapi/genapitypes.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>

class IFeatureTreeModelExtension;
class QModelIndex;
class SearchMatcher;

// The node map a full name belongs to, as the rest of the tree names it: "@DeviceTransportLayer/X"
// gives "TransportLayer", an unknown node map "Invalid".
QString getNodemapName(const QString& fullName);

// One row of the feature tree. Plain items stand for structure; FeatureTreeINodeItem wraps a
// parameter. Items own their children.
class FeatureTreeItem : public QObject {
    Q_OBJECT
public:
    // Item data roles shared by the models, the proxy, the views, the delegate and the table.
    enum Role {
        FullNameRole = 257,
        TechnicalNameStringRole = 258,
        NodemapNameRole = 259,
        DisplayNameStringRole = 260,
        IsCategoryRole = 261,
        VisibilityRole = 262,
        UniqueIdRole = 266,
        FullRowItemRole = 268,
        SpecialNodeRole = 269,
        VisibleRole = 270,
        HighlightedRole = 271,
        SearchedRole = 272,
        HasParameterChildrenRole = 273,
        LevelRole = 274,
        TechnicalNameRole = 287,
        FullNamePathRole = 288
    };

    // What the delegate opens for the value column.
    enum EditorType {
        IntEditorType = 0,
        IntSliderEditorType = 1,
        FloatEditorType = 2,
        FloatSliderEditorType = 3,
        EnumEditorType = 4,
        BoolEditorType = 5,
        StringEditorType = 6,
        CommandEditorType = 7,
        ReservedEditorType8 = 8,
        ReservedEditorType9 = 9,
        NoEditorType = 10,
        NoParameterEditorType = 11
    };

    static const int DEFAULT_COLUMN_COUNT = 2;

    FeatureTreeItem(const QString& name, IFeatureTreeModelExtension* extension,
                    const QString& fullName, FeatureTreeItem* parent, int level);
    ~FeatureTreeItem() override;

    virtual FeatureTreeItem* child(int row);
    virtual int childCount();
    virtual int row() const;
    virtual int columnCount() const;
    virtual FeatureTreeItem* parent() const;
    virtual void appendChild(FeatureTreeItem* item);
    void insertChild(FeatureTreeItem* item, int row);
    void removeChild(int row);
    virtual void clearChildren();
    virtual bool hasChildren();
    bool hasParameterChildren();

    virtual QVariant data(int column, int role) const;
    virtual bool setData(int column, const QVariant& value, int role);
    virtual Qt::ItemFlags flags(int column) const;

    virtual int editorType() const;
    static int editorType(const QModelIndex& index);
    static int editorType(const FeatureTreeItem* item);
    virtual bool isEditable() const;
    virtual bool usePersistentEditor() const;
    virtual bool showMe(GenApi::EVisibility level) const;
    virtual GenApi::EAccessMode getAccessMode() const;
    virtual int getVisibility() const;
    virtual void setVisibility(int visibility);
    virtual QVariant getForegroundRole() const;
    virtual IFeatureTreeModelExtension* getExtension() const;

    virtual QString getTechnicalName() const;
    // What makes two rows the same feature (one feature may be listed by two categories);
    // null for rows that stand for no feature.
    virtual const void* featureKey() const { return nullptr; }
    QString getDisplayedName() const { return m_displayedName; }
    void setDisplayedName(const QString& name) { m_displayedName = name; }
    QString getFullName() const { return m_fullName; }
    bool hasDescription() const { return m_description && !m_description->isEmpty(); }
    QString getDescription() const { return m_description ? *m_description : QString(); }
    void setDescription(const QString& description);
    QString getToolTip() const { return m_toolTip ? *m_toolTip : QString(); }
    void setToolTip(const QString& toolTip);
    void setIsFullRowItem(bool on) { m_fullRowItem = on; }
    void setIsSpecialNode(bool on) { m_specialNode = on; }
    void setIsCategory(bool on) { m_category = on; }
    virtual bool isCategory() const { return m_category; }
    void setHighlighted(bool on) { m_highlighted = on; }
    void setSearched(bool on) { m_searched = on; }
    bool isHighlighted() const { return m_highlighted; }
    bool isSearched() const { return m_searched; }
    // Marks the row found or not by `matcher` (an empty one finds nothing) by either of its
    // names. True when the mark changed.
    virtual bool applySearch(const SearchMatcher& matcher);
    int level() const { return m_level; }

    // Despite the names, these walk the whole subtree, pre-order, and stop at the first match.
    bool findShallow(const FeatureTreeItem* item);
    FeatureTreeItem* findByFullNameShallow(const QString& fullName);
    FeatureTreeItem* findByRoleShallow(int role, const QVariant& value);

protected:
    QList<FeatureTreeItem*> m_children;
    int m_editorType = NoEditorType;

private:
    std::unique_ptr<QString> m_description;
    QString m_displayedName;
    int m_visibility = GenApi::_UndefinedVisibility;
    QString m_fullName;
    std::unique_ptr<QString> m_toolTip;
    FeatureTreeItem* m_parentItem; // not owned
    mutable int m_rowHint = -1;
    bool m_fullRowItem = false;
    bool m_specialNode = false;
    bool m_category = false;
    IFeatureTreeModelExtension* m_extension; // not owned: the model that holds the tree
    int m_level;
    bool m_highlighted = false;
    bool m_searched = false;
};
