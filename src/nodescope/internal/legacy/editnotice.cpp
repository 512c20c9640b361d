#include "editnotice.h"

#include "valueformat.h"

#include <parametercollection/exception.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/parameterdata.h>

#include <cmath>

using namespace ParameterCollection;

namespace {

QString valueWithUnit(const QString& value, const QString& unit)
{
    return unit.isEmpty() ? value : value + QLatin1Char(' ') + unit;
}

// Values that differ only in the last bits of a double are the same value to a user.
bool sameDouble(double a, double b)
{
    return std::fabs(a - b) <= 1e-9 * qMax(1.0, qMax(std::fabs(a), std::fabs(b)));
}

} // namespace

QString EditNotice::featureLabel(const IParameter* parameter)
{
    if (!parameter) {
        return QString();
    }
    try {
        const QString displayName = parameter->getProperty(QStringLiteral("DisplayName"));
        return displayName.isEmpty() ? parameter->getFeatureName() : displayName;
    } catch (...) {
        return parameter->getFeatureName();
    }
}

QString EditNotice::integerWritten(const QString& feature, const QString& typed, qint64 typedValue,
                                   qint64 written, qint64 minimum, qint64 maximum, qint64 increment,
                                   const QString& unit)
{
    if (typedValue == written) {
        return QString();
    }
    const QString wrote = valueWithUnit(QString::number(written), unit);
    if (typedValue > maximum) {
        return tr("%1: %2 is above the maximum %3, wrote %4")
            .arg(feature, typed.trimmed(), QString::number(maximum), wrote);
    }
    if (typedValue < minimum) {
        return tr("%1: %2 is below the minimum %3, wrote %4")
            .arg(feature, typed.trimmed(), QString::number(minimum), wrote);
    }
    return tr("%1: %2 is not on the increment %3, wrote %4")
        .arg(feature, typed.trimmed(), QString::number(increment), wrote);
}

QString EditNotice::floatWritten(const QString& feature, const QString& typed, double typedValue,
                                 double written, double minimum, double maximum, double increment,
                                 const QString& unit, const QLocale& locale)
{
    if (sameDouble(typedValue, written)) {
        return QString();
    }
    const auto number = [&locale](double value) {
        return formatPlainDouble(value, NumberDigits, locale);
    };
    const QString wrote = valueWithUnit(number(written), unit);
    if (typedValue > maximum) {
        return tr("%1: %2 is above the maximum %3, wrote %4")
            .arg(feature, typed.trimmed(), number(maximum), wrote);
    }
    if (typedValue < minimum) {
        return tr("%1: %2 is below the minimum %3, wrote %4")
            .arg(feature, typed.trimmed(), number(minimum), wrote);
    }
    if (increment > 0.0) {
        return tr("%1: %2 is not on the increment %3, wrote %4")
            .arg(feature, typed.trimmed(), number(increment), wrote);
    }
    // Rounded to what the editor can show.
    return tr("%1: %2 was rounded, wrote %3").arg(feature, typed.trimmed(), wrote);
}

QString EditNotice::notANumber(const QString& feature, const QString& typed, const QString& current)
{
    return tr("%1: \"%2\" is not a number, the value stays %3").arg(feature, typed, current);
}

QString EditNotice::outOfRange(const QString& feature, const QString& typed, qint64 typedValue,
                               qint64 minimum, qint64 maximum, const QString& current)
{
    if (typedValue > maximum) {
        return tr("%1: %2 is above the maximum %3, the value stays %4")
            .arg(feature, typed, QString::number(maximum), current);
    }
    return tr("%1: %2 is below the minimum %3, the value stays %4")
        .arg(feature, typed, QString::number(minimum), current);
}

QString EditNotice::notAnAddress(const QString& feature, const QString& typed,
                                 const QString& representation, const QString& current)
{
    if (representation == QLatin1String("MACAddress")) {
        return tr("%1: \"%2\" is not a MAC address, the value stays %3")
            .arg(feature, typed, current);
    }
    return tr("%1: \"%2\" is not an IPv4 address, the value stays %3").arg(feature, typed, current);
}

QString EditNotice::writeRefused(const QString& feature, const std::exception& error)
{
    if (const auto* refusal = dynamic_cast<const Exception*>(&error)) {
        return tr("%1: %2").arg(feature, refusal->message());
    }
    return tr("%1: %2").arg(feature, QString::fromUtf8(error.what()));
}

QString EditNotice::notWritten(const QString& feature)
{
    return tr("%1: the value could not be written").arg(feature);
}

QString EditNotice::cameraLost(const QString& feature)
{
    return tr("%1: the camera is lost, nothing was written").arg(feature);
}

QString EditNotice::rangeText(const ParameterData& data, const QLocale& locale)
{
    QString text;
    if (const auto* integer = dynamic_cast<const IntegerParameterData*>(&data)) {
        text = tr("Minimum %1, maximum %2, increment %3")
                   .arg(QString::number(integer->min), QString::number(integer->max),
                        QString::number(integer->increment));
    } else if (const auto* number = dynamic_cast<const FloatParameterData*>(&data)) {
        const QString minimum = formatPlainDouble(number->min, NumberDigits, locale);
        const QString maximum = formatPlainDouble(number->max, NumberDigits, locale);
        text = number->hasIncrement && number->increment > 0.0
                   ? tr("Minimum %1, maximum %2, increment %3")
                         .arg(minimum, maximum,
                              formatPlainDouble(number->increment, NumberDigits, locale))
                   : tr("Minimum %1, maximum %2, no increment").arg(minimum, maximum);
    } else {
        return QString();
    }
    return withUnit(text, data.unit);
}

QString EditNotice::withUnit(const QString& toolTip, const QString& unit)
{
    if (unit.isEmpty()) {
        return toolTip;
    }
    return toolTip + QLatin1Char('\n') + tr("Unit: %1").arg(unit);
}
