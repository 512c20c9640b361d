#pragma once

#include <parametercollection/iparameter.h>

#include <QPointer>

namespace Backend {

class DeviceParameterCollection;

// What every parameter of a DeviceParameterCollection shares: where its node is, and the
// calls that only need that.
class ParameterHandle : public ParameterCollection::IAdvancedParameterAccess {
public:
    ParameterHandle(DeviceParameterCollection* collection, int map, int node, QString name,
                    QString featureName);

    const QString& name() const { return m_name; }
    const QString& featureName() const { return m_featureName; }
    bool isNull() const { return m_collection.isNull(); }
    ParameterCollection::ParameterDataPtr data() const;
    QString property(const QString& name) const;
    QMap<QString, QString> properties() const;
    void write(const QVariant& value);
    void addObserver();
    void removeObserver();

    void refreshParameterData() override;
    void scheduleForcedParameterDataChangedCheck() override;
    void setProperty(const QString& name, const QString& value) override;

private:
    DeviceParameterCollection* collection() const; // throws when the collection is gone

    QPointer<DeviceParameterCollection> m_collection;
    int m_map;
    int m_node;
    QString m_name;
    QString m_featureName;
    int m_observing = 0;
};

// The parameter classes: one per typed interface, sharing the handle.
template <class Interface> class DeviceParameter : public Interface {
public:
    DeviceParameter(DeviceParameterCollection* collection, int map, int node, const QString& name,
                    const QString& featureName)
        : m_handle(collection, map, node, name, featureName)
    {}
    ~DeviceParameter() override
    {
        // A parameter dropped while observed stops being polled.
        m_handle.removeObserver();
    }

    QString getName() const override { return m_handle.name(); }
    QString getFeatureName() const override { return m_handle.featureName(); }
    bool isNull() const override { return m_handle.isNull(); }
    int getType() const override { return m_handle.data()->type; }
    ParameterCollection::ParameterDataPtr getParameterData() const override
    {
        return m_handle.data();
    }
    QString getProperty(const QString& name) const override { return m_handle.property(name); }
    QMap<QString, QString> getProperties() const override { return m_handle.properties(); }
    using Interface::setValue;
    void setValue(const QVariant& value) override { m_handle.write(value); }
    ParameterCollection::IAdvancedParameterAccess* getAdvancedParameterAccess() override
    {
        return &m_handle;
    }
    void addObserver() override { m_handle.addObserver(); }
    void removeObserver() override { m_handle.removeObserver(); }

protected:
    ParameterHandle m_handle;
};

class IntegerParameter : public DeviceParameter<ParameterCollection::IIntegerParameter> {
public:
    using DeviceParameter::DeviceParameter;
    using DeviceParameter::setValue;
    qint64 getValue() const override;
    void setValue(qint64 value) override { m_handle.write(value); }
    qint64 getMin() const override;
    qint64 getMax() const override;
    qint64 getInc() const override;
};

class FloatParameter : public DeviceParameter<ParameterCollection::IFloatParameter> {
public:
    using DeviceParameter::DeviceParameter;
    using DeviceParameter::setValue;
    double getValue() const override;
    void setValue(double value) override { m_handle.write(value); }
    double getMin() const override;
    double getMax() const override;
    double getInc() const override;
};

class EnumParameter : public DeviceParameter<ParameterCollection::IEnumParameter> {
public:
    using DeviceParameter::DeviceParameter;
    using DeviceParameter::setValue;
    QString getValue() const override;
    void setValue(const QString& entryName) override { m_handle.write(entryName); }
    QVector<ParameterCollection::EnumParameterData::Entry> getEntries() const override;
};

class BooleanParameter : public DeviceParameter<ParameterCollection::IBooleanParameter> {
public:
    using DeviceParameter::DeviceParameter;
    using DeviceParameter::setValue;
    bool getValue() const override;
    void setValue(bool value) override { m_handle.write(value); }
};

class CommandParameter : public DeviceParameter<ParameterCollection::ICommandParameter> {
public:
    using DeviceParameter::DeviceParameter;
    void execute() override { m_handle.write(true); }
    bool isDone() const override;
};

class StringParameter : public DeviceParameter<ParameterCollection::IStringParameter> {
public:
    using DeviceParameter::DeviceParameter;
    using DeviceParameter::setValue;
    QString getValue() const override;
    void setValue(const QString& value) override { m_handle.write(value); }
};

class RegisterParameter : public DeviceParameter<ParameterCollection::IRegisterParameter> {
public:
    using DeviceParameter::DeviceParameter;
    using DeviceParameter::setValue;
    QByteArray getValue() const override;
    void setValue(const QByteArray& bytes) override { m_handle.write(bytes); }
    qint64 getLength() const override;
};

// Categories and nodes of no value type.
class PlainParameter : public DeviceParameter<ParameterCollection::IParameter> {
public:
    using DeviceParameter::DeviceParameter;
};

} // namespace Backend
