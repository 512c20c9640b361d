#pragma once

#include <parametercollection/iparametercollection.h>
#include <parametercollection/parametername.h>

#include <QList>
#include <QQuickItem>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

// Data behind the feature tab editor scene: four user tabs, each a name and a list of feature
// full names, plus the tab the user has selected. The scene edits it through the slots; the
// owner loads it, listens to the scene's signals and stores the result.
class CFeatureOptionsMenu : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(
        int userTabIndex READ getUserTabIndex WRITE setUserTabIndex NOTIFY userTabIndexChanged)
    Q_PROPERTY(QStringList userTabNames READ getUserTabNames NOTIFY userTabNamesChanged)
    Q_PROPERTY(QVariantList featureLists READ getFeatureLists NOTIFY featureListsChanged)
    Q_PROPERTY(int supportedUserTabCount READ getSupportedUserTabCount CONSTANT)
    Q_PROPERTY(int defaultWindowHeight READ getDefaultWindowHeight CONSTANT)
    Q_PROPERTY(QString deleteIconUrl READ getDeleteIconUrl WRITE setDeleteIconUrl NOTIFY
                   deleteIconUrlChanged)
    Q_PROPERTY(QString deleteIconDisabledUrl READ getDeleteIconDisabledUrl WRITE
                   setDeleteIconDisabledUrl NOTIFY deleteIconDisabledUrlChanged)
    Q_PROPERTY(QString dragHandIconUrl READ getDragHandIconUrl WRITE setDragHandIconUrl NOTIFY
                   dragHandIconUrlChanged)
    Q_PROPERTY(QString dragHandIconDisabledUrl READ getDragHandIconDisabledUrl WRITE
                   setDragHandIconDisabledUrl NOTIFY dragHandIconDisabledUrlChanged)

public:
    static constexpr int SUPPORTED_USER_TAB_COUNT = 4;
    static constexpr int DEFAULT_WINDOW_HEIGHT = 440;

    // The object name the feature table carries, and the drag format through which its drags
    // name their source: a drag coming from a widget reaches QML without a source object.
    static const char* const TABLE_VIEW_OBJECT_NAME;
    static const char* const DRAG_SOURCE_MIME_TYPE;

    explicit CFeatureOptionsMenu(QQuickItem* parent = nullptr);
    ~CFeatureOptionsMenu() override;

    void setParameterCollection(
        const QSharedPointer<ParameterCollection::IParameterCollection>& collection);
    QSharedPointer<ParameterCollection::IParameterCollection> getParameterCollection() const;

    // Loads a tab's features as the confirmed state: both the list and its saved copy.
    void setParameterNameList(int tab, const QList<ParameterCollection::ParameterName>& names);
    void getParameterNameList(int tab, QList<ParameterCollection::ParameterName>& names) const;

    void setUserTabName(int tab, const QString& name);
    QStringList getUserTabNames() const;
    void setUserTabIndex(int index);
    int getUserTabIndex() const;

    // Per tab a list of {"name": display name, "fullName": full name}.
    Q_INVOKABLE QVariantList getFeatureLists() const;

    int getSupportedUserTabCount() const { return SUPPORTED_USER_TAB_COUNT; }
    int getDefaultWindowHeight() const { return DEFAULT_WINDOW_HEIGHT; }

    QString getDeleteIconUrl() const { return m_deleteIconUrl; }
    void setDeleteIconUrl(const QString& url);
    QString getDeleteIconDisabledUrl() const { return m_deleteIconDisabledUrl; }
    void setDeleteIconDisabledUrl(const QString& url);
    QString getDragHandIconUrl() const { return m_dragHandIconUrl; }
    void setDragHandIconUrl(const QString& url);
    QString getDragHandIconDisabledUrl() const { return m_dragHandIconDisabledUrl; }
    void setDragHandIconDisabledUrl(const QString& url);

public Q_SLOTS:
    void onNameChanged(int tab, const QString& name);
    void onAddFeature(int tab, const QString& featureFullName);
    void onRemoveFeature(int tab, const QString& featureFullName);
    void onRemove(int tab);

    void reset();
    void resetUserSelection();

Q_SIGNALS:
    void userTabIndexChanged();
    void userTabNamesChanged();
    void featureListsChanged(int tab);
    void deleteIconUrlChanged();
    void deleteIconDisabledUrlChanged();
    void dragHandIconUrlChanged();
    void dragHandIconDisabledUrlChanged();

protected:
    void componentComplete() override;

private:
    static bool isValidTab(int tab);
    void connectSceneSignal(const char* signalSignature, const char* slotSignature);

    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    QVector<QList<ParameterCollection::ParameterName>> m_featureLists;
    QVector<QList<ParameterCollection::ParameterName>> m_savedFeatureLists;
    QStringList m_userTabNames;
    QStringList m_savedUserTabNames;
    QVector<bool> m_userTabNamed;
    int m_userTabIndex = -1;

    QString m_deleteIconUrl;
    QString m_deleteIconDisabledUrl;
    QString m_dragHandIconUrl;
    QString m_dragHandIconDisabledUrl;
};

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
