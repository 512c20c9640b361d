#include "featureoptionsmenu.h"

#include "nodescopeconstants.h"

#include "displaynamecache.h"

#include <QMetaMethod>
#include <QVariantMap>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

using ParameterCollection::ParameterName;

const char* const CFeatureOptionsMenu::TABLE_VIEW_OBJECT_NAME = Constants::TABLE_VIEW_OBJECT_NAME;
const char* const CFeatureOptionsMenu::DRAG_SOURCE_MIME_TYPE = Constants::DRAG_SOURCE_MIME_TYPE;

CFeatureOptionsMenu::CFeatureOptionsMenu(QQuickItem* parent)
    : QQuickItem(parent), m_featureLists(SUPPORTED_USER_TAB_COUNT),
      m_savedFeatureLists(SUPPORTED_USER_TAB_COUNT),
      m_userTabNamed(SUPPORTED_USER_TAB_COUNT, false),
      m_deleteIconUrl(QStringLiteral("qrc:/nodescope/icons/trashcan.svg")),
      m_deleteIconDisabledUrl(QStringLiteral("qrc:/nodescope/icons/trashcan_dis.svg")),
      m_dragHandIconUrl(QStringLiteral("qrc:/nodescope/icons/dragndrop.svg")),
      m_dragHandIconDisabledUrl(QStringLiteral("qrc:/nodescope/icons/dragndrop_dis.svg"))
{
    for (int tab = 0; tab < SUPPORTED_USER_TAB_COUNT; ++tab) {
        m_userTabNames.append(QString());
        m_savedUserTabNames.append(QString());
    }
}

CFeatureOptionsMenu::~CFeatureOptionsMenu() = default;

void CFeatureOptionsMenu::componentComplete()
{
    QQuickItem::componentComplete();
    // The scene declares its signals on this item; QML cannot call slots whose names look like
    // signal handlers ("onAddFeature"), so the item applies the scene's edits itself. Wired
    // before any owner connects, so owners see the edited state when the signal reaches them.
    connectSceneSignal("nameChanged(int,QString)", "onNameChanged(int,QString)");
    connectSceneSignal("addFeature(int,QString)", "onAddFeature(int,QString)");
    connectSceneSignal("removeFeature(int,QString)", "onRemoveFeature(int,QString)");
    connectSceneSignal("remove(int)", "onRemove(int)");
}

void CFeatureOptionsMenu::connectSceneSignal(const char* signalSignature, const char* slotSignature)
{
    const QMetaObject* const meta = metaObject();
    const int signalIndex = meta->indexOfSignal(signalSignature);
    const int slotIndex = meta->indexOfSlot(slotSignature);
    // Used from another scene, the item may lack some of these signals.
    if (signalIndex < 0 || slotIndex < 0) {
        return;
    }
    connect(this, meta->method(signalIndex), this, meta->method(slotIndex), Qt::UniqueConnection);
}

bool CFeatureOptionsMenu::isValidTab(int tab)
{
    return tab >= 0 && tab < SUPPORTED_USER_TAB_COUNT;
}

void CFeatureOptionsMenu::setParameterCollection(
    const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    m_collection = collection;
    // Display names come from the collection, so every chip may read differently now.
    for (int tab = 0; tab < SUPPORTED_USER_TAB_COUNT; ++tab) {
        Q_EMIT featureListsChanged(tab);
    }
}

QSharedPointer<ParameterCollection::IParameterCollection>
CFeatureOptionsMenu::getParameterCollection() const
{
    return m_collection;
}

void CFeatureOptionsMenu::setParameterNameList(int tab, const QList<ParameterName>& names)
{
    if (!isValidTab(tab)) {
        return;
    }
    m_featureLists[tab] = names;
    m_savedFeatureLists[tab] = names;
    Q_EMIT featureListsChanged(tab);
}

void CFeatureOptionsMenu::getParameterNameList(int tab, QList<ParameterName>& names) const
{
    if (!isValidTab(tab)) {
        return;
    }
    names = m_featureLists.at(tab);
}

void CFeatureOptionsMenu::setUserTabName(int tab, const QString& name)
{
    if (!isValidTab(tab)) {
        return;
    }
    if (!m_userTabNamed.at(tab)) {
        m_savedUserTabNames[tab] = name;
        m_userTabNamed[tab] = true;
    } else {
        m_savedUserTabNames[tab] = m_userTabNames.at(tab);
    }
    m_userTabNames[tab] = name;
    Q_EMIT userTabNamesChanged();
}

QStringList CFeatureOptionsMenu::getUserTabNames() const
{
    return m_userTabNames;
}

void CFeatureOptionsMenu::setUserTabIndex(int index)
{
    if (index != -1 && !isValidTab(index)) {
        return;
    }
    if (index == m_userTabIndex) {
        return;
    }
    m_userTabIndex = index;
    Q_EMIT userTabIndexChanged();
}

int CFeatureOptionsMenu::getUserTabIndex() const
{
    return m_userTabIndex;
}

QVariantList CFeatureOptionsMenu::getFeatureLists() const
{
    QVariantList lists;
    for (const QList<ParameterName>& names : m_featureLists) {
        QVariantList entries;
        for (const ParameterName& name : names) {
            try {
                QString displayName;
                const auto parameter = m_collection ? m_collection->getParameter(name) : nullptr;
                if (parameter && !parameter->isNull()) {
                    displayName = parameter->getProperty(QStringLiteral("DisplayName"));
                }
                // A feature the current camera lacks still shows the name a user knows.
                if (displayName.isEmpty()) {
                    displayName = CDisplayNameCache::getDisplayName(name.feature());
                }
                if (displayName.isEmpty()) {
                    displayName = name.feature();
                }
                QVariantMap entry;
                entry.insert(QStringLiteral("name"), displayName);
                entry.insert(QStringLiteral("fullName"), name.toString());
                entries.append(entry);
            } catch (...) {
                // One feature that cannot describe itself must not cost the user the tab.
            }
        }
        lists.append(QVariant(entries));
    }
    return lists;
}

void CFeatureOptionsMenu::setDeleteIconUrl(const QString& url)
{
    if (url != m_deleteIconUrl) {
        m_deleteIconUrl = url;
        Q_EMIT deleteIconUrlChanged();
    }
}

void CFeatureOptionsMenu::setDeleteIconDisabledUrl(const QString& url)
{
    if (url != m_deleteIconDisabledUrl) {
        m_deleteIconDisabledUrl = url;
        Q_EMIT deleteIconDisabledUrlChanged();
    }
}

void CFeatureOptionsMenu::setDragHandIconUrl(const QString& url)
{
    if (url != m_dragHandIconUrl) {
        m_dragHandIconUrl = url;
        Q_EMIT dragHandIconUrlChanged();
    }
}

void CFeatureOptionsMenu::setDragHandIconDisabledUrl(const QString& url)
{
    if (url != m_dragHandIconDisabledUrl) {
        m_dragHandIconDisabledUrl = url;
        Q_EMIT dragHandIconDisabledUrlChanged();
    }
}

void CFeatureOptionsMenu::onNameChanged(int tab, const QString& name)
{
    setUserTabName(tab, name);
}

void CFeatureOptionsMenu::onAddFeature(int tab, const QString& featureFullName)
{
    if (!m_collection || !isValidTab(tab)) {
        return;
    }
    const ParameterName name(featureFullName);
    if (name.isEmpty() || m_featureLists.at(tab).contains(name)) {
        return;
    }
    m_featureLists[tab].append(name);
    Q_EMIT featureListsChanged(tab);
}

void CFeatureOptionsMenu::onRemoveFeature(int tab, const QString& featureFullName)
{
    if (!m_collection || !isValidTab(tab)) {
        return;
    }
    if (m_featureLists[tab].removeOne(ParameterName(featureFullName))) {
        Q_EMIT featureListsChanged(tab);
    }
}

void CFeatureOptionsMenu::onRemove(int tab)
{
    if (!isValidTab(tab)) {
        return;
    }
    m_userTabNames[tab] = QString();
    Q_EMIT userTabNamesChanged();
    Q_EMIT featureListsChanged(tab);
}

void CFeatureOptionsMenu::reset()
{
    if (m_userTabNames != m_savedUserTabNames) {
        m_userTabNames = m_savedUserTabNames;
    }
    Q_EMIT userTabNamesChanged();
    for (int tab = 0; tab < SUPPORTED_USER_TAB_COUNT; ++tab) {
        if (m_featureLists.at(tab) != m_savedFeatureLists.at(tab)) {
            m_featureLists[tab] = m_savedFeatureLists.at(tab);
        }
        Q_EMIT featureListsChanged(tab);
    }
}

void CFeatureOptionsMenu::resetUserSelection()
{
    int index = m_userTabIndex;
    if (index != 0) {
        index = 0;
    } else {
        // Deliberately one-sided: from tab 0 go on to the first tab that exists.
        for (int tab = 0; tab < SUPPORTED_USER_TAB_COUNT; ++tab) {
            if (!m_userTabNames.at(tab).isEmpty()) {
                index = tab;
                break;
            }
        }
    }
    setUserTabIndex(index);
}

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
