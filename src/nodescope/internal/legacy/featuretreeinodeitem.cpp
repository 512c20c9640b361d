#include "featuretreeinodeitem.h"

#include "editnotice.h"
#include "searchmatcher.h"
#include "ifeaturetreemodelextension.h"
#include "valueformat.h"

#include "../../displaynamecache.h"

#include <parametercollection/parametername.h>

#include <QBrush>
#include <QCoreApplication>
#include <QUuid>

using namespace ParameterCollection;
using Plugin::Nodescope::Internal::CDisplayNameCache;

namespace {

// Tool tips of features can be translated per feature; this is where translators find them.
const char* const kToolTipContext = "FeatureTreeINodeItem";

QString typeText(int type)
{
    switch (type) {
    case IntegerType:
        return FeatureTreeINodeItem::tr("Integer");
    case BooleanType:
        return FeatureTreeINodeItem::tr("Boolean");
    case FloatType:
        return FeatureTreeINodeItem::tr("Float");
    case CommandType:
        return FeatureTreeINodeItem::tr("Command");
    case StringType:
        return FeatureTreeINodeItem::tr("String");
    case EnumerationType:
        return FeatureTreeINodeItem::tr("Enumeration");
    case CategoryType:
        return FeatureTreeINodeItem::tr("Category");
    case RegisterType:
        return FeatureTreeINodeItem::tr("Register");
    default:
        return FeatureTreeINodeItem::tr("Unknown");
    }
}

QString line(const QString& text)
{
    return QStringLiteral("<br><nobr>%1</nobr>").arg(text.toHtmlEscaped());
}

} // namespace

FeatureTreeINodeItem::FeatureTreeINodeItem(QSharedPointer<IParameterCollection> collection,
                                           QSharedPointer<IParameter> parameter,
                                           const QString& name,
                                           IFeatureTreeModelExtension* extension,
                                           const QString& fullName, FeatureTreeItem* parent,
                                           bool utf8Encoded, int level)
    : FeatureTreeItem(name, extension, fullName, parent, level),
      m_collection(std::move(collection)), m_parameter(std::move(parameter)),
      m_utf8Encoded(utf8Encoded)
{
    initInternal();
}

FeatureTreeINodeItem::FeatureTreeINodeItem(QSharedPointer<IParameterCollection> collection,
                                           QSharedPointer<IParameter> parameter,
                                           IFeatureTreeModelExtension* extension,
                                           const QString& fullName, FeatureTreeItem* parent,
                                           bool utf8Encoded, int level)
    : FeatureTreeItem(QString(), extension, fullName, parent, level),
      m_collection(std::move(collection)), m_parameter(std::move(parameter)),
      m_utf8Encoded(utf8Encoded)
{
    initInternal();
}

FeatureTreeINodeItem::~FeatureTreeINodeItem()
{
    removeNodeUpdatedSignalObserver();
}

void FeatureTreeINodeItem::initInternal()
{
    m_editorType = editorType(m_parameter);
    if (!m_parameter) {
        return;
    }
    try {
        if (m_parameter->isNull()) {
            return;
        }
        m_data = m_parameter->getParameterData();
        m_technicalName = m_parameter->getFeatureName();
        m_displayNameString = m_parameter->getProperty(QStringLiteral("DisplayName"));
        if (m_displayNameString.isEmpty()) {
            m_displayNameString = m_technicalName;
        } else {
            CDisplayNameCache::cacheDisplayName(m_technicalName, m_displayNameString);
        }
        if (getDisplayedName().isEmpty()) {
            setDisplayedName(m_displayNameString);
        }
        if (m_data) {
            setVisibility(m_data->visibility);
        }
        addNodeUpdatedSignalObserver();
    } catch (...) {
        // A parameter that cannot describe itself stays a row without value or editor.
        m_editorType = NoEditorType;
    }
}

void FeatureTreeINodeItem::loadChildren()
{
    if (m_childrenLoaded) {
        return;
    }
    // Set first: the model asks for the count while it inserts.
    m_childrenLoaded = true;
    if (isCategory() && getExtension()) {
        getExtension()->addChildren(this, m_parameter);
    }
}

FeatureTreeItem* FeatureTreeINodeItem::child(int row)
{
    loadChildren();
    return FeatureTreeItem::child(row);
}

int FeatureTreeINodeItem::childCount()
{
    loadChildren();
    return FeatureTreeItem::childCount();
}

int FeatureTreeINodeItem::columnCount() const
{
    return FeatureTreeItem::columnCount();
}

void FeatureTreeINodeItem::appendChild(FeatureTreeItem* item)
{
    FeatureTreeItem::appendChild(item);
}

int FeatureTreeINodeItem::row() const
{
    return FeatureTreeItem::row();
}

FeatureTreeItem* FeatureTreeINodeItem::parent() const
{
    return FeatureTreeItem::parent();
}

bool FeatureTreeINodeItem::hasChildren()
{
    if (m_childrenLoaded) {
        return FeatureTreeItem::hasChildren();
    }
    // Answered from the structure so that drawing a branch mark loads nothing.
    if (!isCategory() || !m_collection) {
        return false;
    }
    try {
        return !m_collection->getChildren(m_parameter->getName()).isEmpty();
    } catch (...) {
        return false;
    }
}

void FeatureTreeINodeItem::clearChildren()
{
    FeatureTreeItem::clearChildren();
    m_childrenLoaded = false;
}

bool FeatureTreeINodeItem::isCategory() const
{
    return m_data && m_data->type == CategoryType;
}

QString FeatureTreeINodeItem::getTechnicalName() const
{
    return m_technicalName.isEmpty() ? FeatureTreeItem::getTechnicalName() : m_technicalName;
}

bool FeatureTreeINodeItem::isDeviceLost() const
{
    if (m_data && m_data->deviceLost) {
        return true;
    }
    try {
        return m_collection && m_collection->isLost();
    } catch (...) {
        return false;
    }
}

bool FeatureTreeINodeItem::hasReadError() const
{
    return m_data && m_data->hasError() && !m_data->readable;
}

QString FeatureTreeINodeItem::lostText()
{
    return tr("The camera is lost: this is the last value read from it.");
}

QColor FeatureTreeINodeItem::errorColour()
{
    return QColor(0xc0, 0x10, 0x10);
}

QString FeatureTreeINodeItem::valueText() const
{
    if (isCategory()) {
        return QString();
    }
    // The reason is the value a user gets: "<not readable>" would hide it.
    if (hasReadError()) {
        return m_data->errorText;
    }
    if (!m_data->implemented) {
        return tr("<not implemented>");
    }
    if (m_data->readable) {
        QString text =
            m_data->displayText.isEmpty() ? m_data->value.toString() : m_data->displayText;
        const auto* number = dynamic_cast<const FloatParameterData*>(m_data.data());
        if (number && number->displayNotation == FloatParameterData::Automatic &&
            m_data->value.isValid()) {
            // Automatic notation still writes plain decimals: 1e+07 reads as 10000000.
            text = formatPlainDouble(m_data->value.toDouble(), qMax(number->displayPrecision, 6));
        }
        if (!m_data->unit.isEmpty() && m_data->isNumeric()) {
            text += QLatin1Char(' ') + m_data->unit;
        }
        return text;
    }
    if (m_data->available) {
        return tr("<not readable>");
    }
    return tr("<not available>");
}

QString FeatureTreeINodeItem::richToolTip() const
{
    const QString displayed = getDisplayedName();
    QString text = displayed == m_technicalName || m_technicalName.isEmpty()
                       ? QStringLiteral("<nobr><b>%1</b></nobr>").arg(displayed.toHtmlEscaped())
                       : QStringLiteral("<nobr><b>%1 (%2)</b></nobr>")
                             .arg(displayed.toHtmlEscaped(), m_technicalName.toHtmlEscaped());

    const QString key = QStringLiteral("%1_Tooltip").arg(getFullName());
    const QByteArray keyBytes = key.toUtf8();
    QString toolTip = QCoreApplication::translate(kToolTipContext, keyBytes.constData());
    if (toolTip == key) {
        toolTip = m_parameter->getProperty(QStringLiteral("ToolTip"));
        if (toolTip.isEmpty()) {
            toolTip = m_parameter->getProperty(QStringLiteral("Description"));
        }
    }
    for (const QString& piece : toolTip.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        text += line(piece.trimmed());
    }
    if (isCategory()) {
        return text;
    }
    text += line(tr("%1, access %2, visibility %3")
                     .arg(typeText(m_data->type), GenApi::accessModeToString(m_data->accessMode),
                          GenApi::visibilityToString(m_data->visibility)));
    const QString range = EditNotice::rangeText(*m_data, getSystemLocale());
    for (const QString& piece : range.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        text += line(piece);
    }
    return text + stateLines();
}

QString FeatureTreeINodeItem::stateLines() const
{
    QString text;
    if (!m_data->restriction.isEmpty()) {
        text += line(m_data->restriction);
    } else if (m_data->locked) {
        text += line(tr("Locked while the camera is in this state"));
    }
    if (m_data->hasError()) {
        text += line(tr("Could not be read: %1").arg(m_data->errorText));
    }
    if (isDeviceLost()) {
        text += line(m_data->readable ? lostText() : tr("The camera is lost."));
    }
    return text;
}

QVariant FeatureTreeINodeItem::foreground(int column) const
{
    if (column == 1 && !isCategory()) {
        if (hasReadError()) {
            return QBrush(errorColour());
        }
        if (isDeviceLost()) {
            // Greyed: the last value, kept but no longer the camera's.
            return FeatureTreeItem::getForegroundRole();
        }
    }
    return getForegroundRole();
}

QVariant FeatureTreeINodeItem::data(int column, int role) const
{
    if (!m_parameter || !m_data) {
        return FeatureTreeItem::data(column, role);
    }
    switch (role) {
    case Qt::DisplayRole:
        if (column == 0) {
            return m_secondName.isEmpty()
                       ? getDisplayedName()
                       : QStringLiteral("%1 [%2]").arg(getDisplayedName(), m_secondName);
        }
        return column == 1 ? QVariant(valueText()) : QVariant();
    case Qt::EditRole:
        if (column != 1 || isCategory() || m_data->type == BooleanType || !m_data->readable) {
            return QVariant();
        }
        return m_data->value;
    case Qt::ToolTipRole:
        return richToolTip();
    case Qt::ForegroundRole:
        return foreground(column);
    case FullNameRole:
        return getFullName();
    case TechnicalNameStringRole:
        return m_technicalName;
    case NodemapNameRole:
        return ParameterName(m_parameter->getName()).nodeMap();
    case DisplayNameStringRole:
        return m_displayNameString;
    case IsCategoryRole:
        return isCategory();
    case VisibilityRole:
        return getVisibility();
    case UniqueIdRole:
        return QUuid::createUuid().toString();
    case FullRowItemRole:
        return isCategory();
    default:
        return FeatureTreeItem::data(column, role);
    }
}

bool FeatureTreeINodeItem::setData(int column, const QVariant& value, int role)
{
    if (column != 1 || role != Qt::EditRole || !m_parameter) {
        return false;
    }
    const QByteArray name = getFullName().toUtf8();
    if (m_editorType == FloatEditorType || m_editorType == FloatSliderEditorType) {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (!ok) {
            qDebug("FeatureTreeItem::setData() float editor, but no double in variant() (node "
                   "name = %s )",
                   name.constData());
            return false;
        }
        auto* floatParameter = qobject_cast<IFloatParameter*>(m_parameter.data());
        if (!floatParameter) {
            qDebug("Floateditor for node %s, but no GenApi float node??", name.constData());
            return false;
        }
        floatParameter->setValue(number);
        return true;
    }
    m_parameter->setValue(value);
    return true;
}

Qt::ItemFlags FeatureTreeINodeItem::flags(int column) const
{
    Qt::ItemFlags result = FeatureTreeItem::flags(column);
    if (!m_data || isCategory()) {
        return result;
    }
    // Features can be dragged into feature tabs.
    result |= Qt::ItemIsDragEnabled;
    if (column == 1 && isEditable()) {
        result |= Qt::ItemIsEditable;
    }
    return result;
}

int FeatureTreeINodeItem::editorType() const
{
    return m_editorType;
}

int FeatureTreeINodeItem::editorType(QSharedPointer<IParameter> parameter)
{
    try {
        if (!parameter || parameter->isNull()) {
            return NoParameterEditorType;
        }
    } catch (...) {
        return NoParameterEditorType;
    }
    int type = UnknownType;
    try {
        type = parameter->getType();
    } catch (...) {
        return NoEditorType;
    }
    const auto hasSlider = [&parameter] {
        const QString representation = parameter->getProperty(QStringLiteral("Representation"));
        return representation == QLatin1String("Linear") ||
               representation == QLatin1String("Logarithmic");
    };
    try {
        switch (type) {
        case IntegerType:
            return hasSlider() ? IntSliderEditorType : IntEditorType;
        case FloatType:
            return hasSlider() ? FloatSliderEditorType : FloatEditorType;
        case EnumerationType:
            return EnumEditorType;
        case BooleanType:
            return BoolEditorType;
        case StringType:
            return StringEditorType;
        case CommandType:
            return CommandEditorType;
        default:
            return NoEditorType;
        }
    } catch (...) {
        return NoEditorType;
    }
}

int FeatureTreeINodeItem::editorType(const FeatureTreeINodeItem* item)
{
    return item ? item->editorType() : NoEditorType;
}

bool FeatureTreeINodeItem::isEditable() const
{
    return m_data && !isCategory() && m_data->implemented && m_data->available &&
           m_data->writable && !m_data->locked && !isDeviceLost();
}

bool FeatureTreeINodeItem::usePersistentEditor() const
{
    return FeatureTreeItem::usePersistentEditor();
}

bool FeatureTreeINodeItem::showMe(GenApi::EVisibility level) const
{
    if (!m_data) {
        return FeatureTreeItem::showMe(level);
    }
    if (m_data->visibility > level || !m_data->implemented) {
        return false;
    }
    return isCategory() || m_data->available;
}

GenApi::EAccessMode FeatureTreeINodeItem::getAccessMode() const
{
    return m_data ? m_data->accessMode : GenApi::NI;
}

int FeatureTreeINodeItem::getVisibility() const
{
    return m_data ? static_cast<int>(m_data->visibility) : FeatureTreeItem::getVisibility();
}

QVariant FeatureTreeINodeItem::getForegroundRole() const
{
    if (!m_data || isCategory() || isEditable()) {
        return QVariant();
    }
    return FeatureTreeItem::getForegroundRole();
}

IFeatureTreeModelExtension* FeatureTreeINodeItem::getExtension() const
{
    return FeatureTreeItem::getExtension();
}

bool FeatureTreeINodeItem::applySearch(const SearchMatcher& matcher)
{
    bool searched = false;
    QString secondName;
    if (!matcher.isEmpty() && m_nameCharacters == 0) {
        // The names are set once the item is made; most texts rule out most rows by these.
        m_nameCharacters = SearchMatcher::charactersOf(getDisplayedName()) |
                           SearchMatcher::charactersOf(getTechnicalName());
    }
    if (!matcher.isEmpty() && matcher.mayMatch(m_nameCharacters)) {
        const bool byName = matcher.matches(getDisplayedName());
        searched = byName || matcher.matches(getTechnicalName());
        if (searched && !byName) {
            secondName = getTechnicalName();
        }
    }
    const bool changed = searched != isSearched() || secondName != m_secondName;
    setSearched(searched);
    m_secondName = secondName;
    return changed;
}

void FeatureTreeINodeItem::addNodeUpdatedSignalObserver()
{
    if (m_observing || !m_parameter) {
        return;
    }
    connect(m_parameter.data(), &IParameter::parameterDataChanged, this,
            &FeatureTreeINodeItem::onParameterDataChanged);
    m_parameter->addObserver();
    m_observing = true;
}

void FeatureTreeINodeItem::removeNodeUpdatedSignalObserver()
{
    if (!m_observing) {
        return;
    }
    m_observing = false;
    disconnect(m_parameter.data(), &IParameter::parameterDataChanged, this,
               &FeatureTreeINodeItem::onParameterDataChanged);
    try {
        m_parameter->removeObserver();
    } catch (...) {
        // Nothing to undo on a parameter that is already gone.
    }
}

void FeatureTreeINodeItem::scheduleForcedParameterDataChangedCheck()
{
    if (!m_parameter) {
        return;
    }
    try {
        if (IAdvancedParameterAccess* access = m_parameter->getAdvancedParameterAccess()) {
            access->scheduleForcedParameterDataChangedCheck();
        }
    } catch (...) {
        // The next poll or refresh tries again.
    }
}

void FeatureTreeINodeItem::onParameterDataChanged(QSharedPointer<const ParameterData> data)
{
    if (!data) {
        return;
    }
    const QSharedPointer<const ParameterData> old = m_data;
    m_data = data;
    setVisibility(data->visibility);
    // The name column shows state too (greyed when not writable), so it follows such changes.
    const bool nameChanged =
        !old || old->visibility != data->visibility || old->accessMode != data->accessMode ||
        old->writable != data->writable || old->locked != data->locked ||
        old->available != data->available || old->implemented != data->implemented ||
        old->deviceLost != data->deviceLost || old->errorText != data->errorText ||
        old->restriction != data->restriction;
    if (nameChanged) {
        announce(0);
    }
    announce(1);
}

void FeatureTreeINodeItem::announce(int column)
{
    if (IFeatureTreeModelExtension* extension = getExtension()) {
        extension->onNodeUpdated(column, this);
    }
    Q_EMIT nodeUpdated(column, this);
}
