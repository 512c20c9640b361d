#include "deviceparameter.h"

#include "deviceparametercollection.h"

#include <parametercollection/exception.h>

using namespace ParameterCollection;

namespace Backend {

ParameterHandle::ParameterHandle(DeviceParameterCollection* collection, int map, int node,
                                 QString name, QString featureName)
    : m_collection(collection), m_map(map), m_node(node), m_name(std::move(name)),
      m_featureName(std::move(featureName))
{}

DeviceParameterCollection* ParameterHandle::collection() const
{
    if (m_collection.isNull()) {
        throw DeviceLostException(m_featureName, QStringLiteral("the device is closed"));
    }
    return m_collection.data();
}

ParameterDataPtr ParameterHandle::data() const
{
    return collection()->dataOf(m_map, m_node);
}

QString ParameterHandle::property(const QString& name) const
{
    return m_collection.isNull() ? QString() : m_collection->propertyOf(m_map, m_node, name);
}

QMap<QString, QString> ParameterHandle::properties() const
{
    QMap<QString, QString> result;
    static const char* const names[] = {"Name",
                                        "DisplayName",
                                        "ToolTip",
                                        "Description",
                                        "Visibility",
                                        "AccessMode",
                                        "Representation",
                                        "Unit",
                                        "DisplayNotation",
                                        "DisplayPrecision",
                                        "PollingTime",
                                        "Type"};
    for (const char* name : names) {
        result.insert(QLatin1String(name), property(QLatin1String(name)));
    }
    return result;
}

void ParameterHandle::write(const QVariant& value)
{
    collection()->write(m_map, m_node, value);
}

void ParameterHandle::addObserver()
{
    if (!m_collection.isNull()) {
        ++m_observing;
        m_collection->addObserver(m_map, m_node);
    }
}

void ParameterHandle::removeObserver()
{
    if (m_observing > 0 && !m_collection.isNull()) {
        --m_observing;
        m_collection->removeObserver(m_map, m_node);
    }
}

void ParameterHandle::refreshParameterData()
{
    collection()->readNode(m_map, m_node, false);
}

void ParameterHandle::scheduleForcedParameterDataChangedCheck()
{
    collection()->readNode(m_map, m_node, true);
}

void ParameterHandle::setProperty(const QString& name, const QString& value)
{
    collection()->setPropertyOverride(m_map, m_node, name, value);
}

qint64 IntegerParameter::getValue() const
{
    return m_handle.data()->value.toLongLong();
}

qint64 IntegerParameter::getMin() const
{
    return static_cast<const IntegerParameterData&>(*m_handle.data()).min;
}

qint64 IntegerParameter::getMax() const
{
    return static_cast<const IntegerParameterData&>(*m_handle.data()).max;
}

qint64 IntegerParameter::getInc() const
{
    return static_cast<const IntegerParameterData&>(*m_handle.data()).increment;
}

double FloatParameter::getValue() const
{
    return m_handle.data()->value.toDouble();
}

double FloatParameter::getMin() const
{
    return static_cast<const FloatParameterData&>(*m_handle.data()).min;
}

double FloatParameter::getMax() const
{
    return static_cast<const FloatParameterData&>(*m_handle.data()).max;
}

double FloatParameter::getInc() const
{
    return static_cast<const FloatParameterData&>(*m_handle.data()).increment;
}

QString EnumParameter::getValue() const
{
    return m_handle.data()->value.toString();
}

QVector<EnumParameterData::Entry> EnumParameter::getEntries() const
{
    return static_cast<const EnumParameterData&>(*m_handle.data()).entries;
}

bool BooleanParameter::getValue() const
{
    return m_handle.data()->value.toBool();
}

bool CommandParameter::isDone() const
{
    return static_cast<const CommandParameterData&>(*m_handle.data()).done;
}

QString StringParameter::getValue() const
{
    return m_handle.data()->value.toString();
}

QByteArray RegisterParameter::getValue() const
{
    return m_handle.data()->value.toByteArray();
}

qint64 RegisterParameter::getLength() const
{
    return static_cast<const RegisterParameterData&>(*m_handle.data()).length;
}

} // namespace Backend
