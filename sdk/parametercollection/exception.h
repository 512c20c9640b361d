#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace ParameterCollection {

// Every failure of the parameter layer is one of these. The message names the feature the
// way GenICam tools do: "[ExposureTime] value 5 below minimum 10".
class Exception : public std::exception {
public:
    enum Kind {
        Generic,
        Access,          // not readable or writable now: RO, WO, NA, NI, locked
        Range,           // below minimum, above maximum, off the increment grid
        InvalidArgument, // text or type that does not fit the parameter
        Timeout,
        DeviceLost,
        NotFound
    };

    Exception(Kind kind, const QString& featureName, const QString& message);

    Kind kind() const noexcept { return m_kind; }
    const QString& featureName() const noexcept { return m_featureName; }
    // The message without the feature prefix.
    const QString& message() const noexcept { return m_message; }
    // "[Feature] message".
    QString text() const;
    const char* what() const noexcept override { return m_what.constData(); }

private:
    Kind m_kind;
    QString m_featureName;
    QString m_message;
    QByteArray m_what;
};

class AccessException : public Exception {
public:
    AccessException(const QString& feature, const QString& message)
        : Exception(Access, feature, message)
    {}
};

class RangeException : public Exception {
public:
    RangeException(const QString& feature, const QString& message)
        : Exception(Range, feature, message)
    {}
};

class InvalidArgumentException : public Exception {
public:
    InvalidArgumentException(const QString& feature, const QString& message)
        : Exception(InvalidArgument, feature, message)
    {}
};

class TimeoutException : public Exception {
public:
    TimeoutException(const QString& feature, const QString& message)
        : Exception(Timeout, feature, message)
    {}
};

class DeviceLostException : public Exception {
public:
    DeviceLostException(const QString& feature, const QString& message)
        : Exception(DeviceLost, feature, message)
    {}
};

class NotFoundException : public Exception {
public:
    NotFoundException(const QString& feature, const QString& message)
        : Exception(NotFound, feature, message)
    {}
};

} // namespace ParameterCollection
