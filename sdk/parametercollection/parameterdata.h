#pragma once

#include <genapi/genapitypes.h>
#include <parametercollection/exception.h>

#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QVariant>
#include <QVector>

namespace ParameterCollection {

// Type codes of the parameter layer.
enum ParameterType {
    UnknownType = 0,
    IntegerType = 1,
    BooleanType = 2,
    FloatType = 3,
    CommandType = 4,
    StringType = 5,
    EnumerationType = 6,
    CategoryType = 7,
    // A Register or StructReg node: raw bytes, shown as hexadecimal.
    RegisterType = 8
};

// An immutable snapshot of one parameter: what it is, whether it can be read and written
// now, and its value. Snapshots are shared between threads as
// QSharedPointer<const ParameterData>; a change produces a new snapshot.
class ParameterData {
public:
    ParameterData() = default;
    virtual ~ParameterData() = default;
    virtual QSharedPointer<ParameterData> clone() const;

    int type = UnknownType;
    QString name;        // full name, "@CameraDevice/Width"
    QString featureName; // "Width"
    GenApi::EVisibility visibility = GenApi::Beginner;
    GenApi::EAccessMode accessMode = GenApi::NI;
    bool readable = false;
    bool writable = false;
    bool available = false;
    bool implemented = false;
    bool locked = false;
    // The node is gone with its device: value, when readable, is the last one read.
    bool deviceLost = false;
    QVariant value;         // the typed value; invalid when not readable
    QString displayText;    // the value as a user reads it (enumeration: entry display name)
    QString representation; // "Linear", "Logarithmic", "HexNumber", ... or empty
    QString unit;
    // Why the value could not be read, when it could not; accessMode still says what the node
    // declares. Empty when the value is good or was not asked for (write-only, not available).
    QString errorText;
    Exception::Kind errorKind = Exception::Generic;
    // Why the feature can't be changed now, naming the features that decide it and their
    // values: "Locked while Exposure Auto is Continuous". Empty when nothing restricts it.
    QString restriction;

    bool isNumeric() const { return type == IntegerType || type == FloatType; }
    bool hasError() const { return !errorText.isEmpty(); }
};

class IntegerParameterData : public ParameterData {
public:
    QSharedPointer<ParameterData> clone() const override;
    qint64 min = 0;
    qint64 max = 0;
    qint64 increment = 1;
};

class FloatParameterData : public ParameterData {
public:
    enum DisplayNotation { Automatic = 0, Fixed = 1, Scientific = 2 };

    QSharedPointer<ParameterData> clone() const override;
    double min = 0.0;
    double max = 0.0;
    double increment = 0.0;
    bool hasIncrement = false;
    int displayNotation = Automatic;
    int displayPrecision = 6;
};

class BooleanParameterData : public ParameterData {
public:
    QSharedPointer<ParameterData> clone() const override;
};

class StringParameterData : public ParameterData {
public:
    QSharedPointer<ParameterData> clone() const override;
    qint64 maxLength = 0;
};

class EnumParameterData : public ParameterData {
public:
    struct Entry {
        QString name;        // symbolic name, what is written
        QString displayName; // what is shown
        qint64 intValue = 0;
        bool operator==(const Entry& o) const
        {
            return name == o.name && displayName == o.displayName && intValue == o.intValue;
        }
    };

    QSharedPointer<ParameterData> clone() const override;
    // The entries that can be chosen now: implemented and available, in document order.
    // The value is an entry's symbolic name.
    QVector<Entry> entries;
    qint64 intValue = 0;
};

class CommandParameterData : public ParameterData {
public:
    QSharedPointer<ParameterData> clone() const override;
    // value is true while the command runs, false once the device reports it done. A command
    // whose register can't be read is always done: nobody can know otherwise.
    bool done = true;
};

class RegisterParameterData : public ParameterData {
public:
    QSharedPointer<ParameterData> clone() const override;
    // value is a QByteArray of `length` bytes, as the device holds them.
    qint64 length = 0;
};

using ParameterDataPtr = QSharedPointer<const ParameterData>;

// True when two snapshots differ in anything a view shows.
bool sameData(const ParameterData& a, const ParameterData& b);

} // namespace ParameterCollection

Q_DECLARE_METATYPE(QSharedPointer<const ParameterCollection::ParameterData>)
