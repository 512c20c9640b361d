#pragma once

#include <parametercollection/iadvancedparameteraccess.h>
#include <parametercollection/parameterdata.h>
#include <parametercollection/parametername.h>

#include <QMap>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

namespace ParameterCollection {

// One feature of a node map. Reads are answered from the latest snapshot and never block;
// writes are checked at once against that snapshot (and throw an Exception when they cannot
// succeed), then carried out by the device in the background.
class IParameter : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~IParameter() override = default;

    // Full name, "@CameraDevice/Width".
    virtual QString getName() const = 0;
    // Name inside the node map, "Width".
    virtual QString getFeatureName() const = 0;
    ParameterName getParameterName() const { return ParameterName(getName()); }

    // True for a parameter that stands for no node, such as one whose device is gone.
    virtual bool isNull() const = 0;
    virtual int getType() const = 0;
    virtual QSharedPointer<const ParameterData> getParameterData() const = 0;

    // Node properties by their GenICam names: "Name", "DisplayName", "ToolTip", "Description",
    // "Visibility", "AccessMode", "Representation", "Unit", "DisplayNotation",
    // "DisplayPrecision", "PollingTime", "Type". Unknown names give an empty string.
    virtual QString getProperty(const QString& name) const = 0;
    virtual QMap<QString, QString> getProperties() const = 0;

    // Writes a value given as a variant: a number, a bool, an enumeration entry's symbolic
    // name, a string; integer text may be decimal or "0x" hexadecimal, register text is
    // hexadecimal bytes. For a command any true value executes it.
    virtual void setValue(const QVariant& value) = 0;

    virtual IAdvancedParameterAccess* getAdvancedParameterAccess() = 0;

    // An observed parameter is one that some view shows: only observed parameters are
    // polled and refreshed in bulk.
    virtual void addObserver() = 0;
    virtual void removeObserver() = 0;

Q_SIGNALS:
    void parameterDataChanged(QSharedPointer<const ParameterCollection::ParameterData> data);
};

class IIntegerParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;
    using IParameter::setValue;
    virtual qint64 getValue() const = 0;
    virtual void setValue(qint64 value) = 0;
    virtual qint64 getMin() const = 0;
    virtual qint64 getMax() const = 0;
    virtual qint64 getInc() const = 0;
};

class IFloatParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;
    using IParameter::setValue;
    virtual double getValue() const = 0;
    virtual void setValue(double value) = 0;
    virtual double getMin() const = 0;
    virtual double getMax() const = 0;
    // 0 when the feature has no increment.
    virtual double getInc() const = 0;
};

class IEnumParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;
    using IParameter::setValue;
    // The current entry's symbolic name.
    virtual QString getValue() const = 0;
    virtual void setValue(const QString& entryName) = 0;
    virtual QVector<EnumParameterData::Entry> getEntries() const = 0;
};

class IBooleanParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;
    using IParameter::setValue;
    virtual bool getValue() const = 0;
    virtual void setValue(bool value) = 0;
};

class ICommandParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;
    virtual void execute() = 0;
    // False from execute() until the device reports the command done.
    virtual bool isDone() const = 0;
};

class IStringParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;
    using IParameter::setValue;
    virtual QString getValue() const = 0;
    virtual void setValue(const QString& value) = 0;
};

class IRegisterParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;
    using IParameter::setValue;
    virtual QByteArray getValue() const = 0;
    // Exactly getLength() bytes; anything else throws InvalidArgumentException.
    virtual void setValue(const QByteArray& bytes) = 0;
    virtual qint64 getLength() const = 0;
};

} // namespace ParameterCollection

Q_DECLARE_METATYPE(QSharedPointer<ParameterCollection::IParameter>)
