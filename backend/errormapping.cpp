#include <arv.h>

#include "errormapping.h"

using namespace ParameterCollection;

namespace Backend {

Exception::Kind exceptionKindOf(GQuark domain, int code)
{
    if (domain == ARV_DEVICE_ERROR) {
        switch (code) {
        case ARV_DEVICE_ERROR_TIMEOUT:
            return Exception::Timeout;
        case ARV_DEVICE_ERROR_NOT_CONNECTED:
        case ARV_DEVICE_ERROR_TRANSFER_ERROR:
            return Exception::DeviceLost;
        case ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED:
        case ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT:
        case ARV_DEVICE_ERROR_NOT_CONTROLLER:
            return Exception::Access;
        case ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER:
        case ARV_DEVICE_ERROR_INVALID_PARAMETER:
            return Exception::Range;
        case ARV_DEVICE_ERROR_FEATURE_NOT_FOUND:
        case ARV_DEVICE_ERROR_NOT_FOUND:
        case ARV_DEVICE_ERROR_GENICAM_NOT_FOUND:
            return Exception::NotFound;
        case ARV_DEVICE_ERROR_WRONG_FEATURE:
            return Exception::InvalidArgument;
        default:
            return Exception::Generic;
        }
    }
    if (domain == ARV_GC_ERROR) {
        switch (code) {
        case ARV_GC_ERROR_OUT_OF_RANGE:
            return Exception::Range;
        case ARV_GC_ERROR_READ_ONLY:
            return Exception::Access;
        case ARV_GC_ERROR_NODE_NOT_FOUND:
            return Exception::NotFound;
        case ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND:
        case ARV_GC_ERROR_INVALID_SYNTAX:
        case ARV_GC_ERROR_SET_FROM_STRING_UNDEFINED:
        case ARV_GC_ERROR_INVALID_LENGTH:
            return Exception::InvalidArgument;
        default:
            return Exception::Generic;
        }
    }
    return Exception::Generic;
}

QString messageOf(const GError* error)
{
    if (error == nullptr) {
        return QString();
    }
    QString text = QString::fromUtf8(error->message);
    if (!text.startsWith(QLatin1Char('['))) {
        return text;
    }
    const int close = text.indexOf(QLatin1String("] "));
    if (close < 0) {
        return text;
    }
    const QString tag = text.left(close + 2);
    while (text.midRef(tag.size()).startsWith(tag)) {
        text.remove(0, tag.size());
    }
    return text;
}

bool isDeviceLossError(GQuark domain, int code)
{
    return domain == ARV_DEVICE_ERROR &&
           (code == ARV_DEVICE_ERROR_TIMEOUT || code == ARV_DEVICE_ERROR_NOT_CONNECTED ||
            code == ARV_DEVICE_ERROR_TRANSFER_ERROR);
}

void throwFor(Exception::Kind kind, const QString& feature, const QString& message)
{
    switch (kind) {
    case Exception::Access:
        throw AccessException(feature, message);
    case Exception::Range:
        throw RangeException(feature, message);
    case Exception::InvalidArgument:
        throw InvalidArgumentException(feature, message);
    case Exception::Timeout:
        throw TimeoutException(feature, message);
    case Exception::DeviceLost:
        throw DeviceLostException(feature, message);
    case Exception::NotFound:
        throw NotFoundException(feature, message);
    case Exception::Generic:
        break;
    }
    throw Exception(Exception::Generic, feature, message);
}

} // namespace Backend
