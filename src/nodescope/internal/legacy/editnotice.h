#pragma once

#include <QCoreApplication>
#include <QLocale>
#include <QString>

#include <exception>

namespace ParameterCollection {
class IParameter;
class ParameterData;
} // namespace ParameterCollection

// What the status line says when an editor does not write what the user typed: the value it
// wrote instead and why, or why it wrote nothing. Each text names the feature once, by the
// name the user sees. Also the range lines of the tool tips, so cells and editors agree.
class EditNotice {
    Q_DECLARE_TR_FUNCTIONS(EditNotice)
public:
    // The feature's display name, else its name; empty for no parameter.
    static QString featureLabel(const ParameterCollection::IParameter* parameter);

    // Empty when `written` is the typed value. `typed` is the text as the user typed it.
    static QString integerWritten(const QString& feature, const QString& typed, qint64 typedValue,
                                  qint64 written, qint64 minimum, qint64 maximum, qint64 increment,
                                  const QString& unit);
    // Without an increment pass 0. Numbers are written in `locale`.
    static QString floatWritten(const QString& feature, const QString& typed, double typedValue,
                                double written, double minimum, double maximum, double increment,
                                const QString& unit, const QLocale& locale);

    // Typed text that was refused; `current` is the value the editor shows again.
    static QString notANumber(const QString& feature, const QString& typed, const QString& current);
    // A number outside [minimum, maximum] that was not taken.
    static QString outOfRange(const QString& feature, const QString& typed, qint64 typedValue,
                              qint64 minimum, qint64 maximum, const QString& current);
    // `representation` is "IPV4Address" or "MACAddress".
    static QString notAnAddress(const QString& feature, const QString& typed,
                                const QString& representation, const QString& current);

    // A write the parameter layer refused at once; its message names no feature, this does.
    static QString writeRefused(const QString& feature, const std::exception& error);
    // A write refused for no reason the parameter layer gave.
    static QString notWritten(const QString& feature);
    // A write to a camera that is gone.
    static QString cameraLost(const QString& feature);

    // "Minimum 16, maximum 1920, increment 16" for a number's data, with a second line for the
    // unit; empty for other data.
    static QString rangeText(const ParameterCollection::ParameterData& data, const QLocale& locale);
    // `toolTip` followed by a line naming the unit, when there is one.
    static QString withUnit(const QString& toolTip, const QString& unit);

    // Significant digits that numbers in these texts keep: enough for any bound a camera
    // description writes.
    static constexpr int NumberDigits = 15;
};
