#include "hexvalidator.h"

#include <QLocale>

#include <limits>

HexValidator::HexValidator(int minimum, int maximum, QObject* parent)
    : QIntValidator(minimum, maximum, parent)
{
    // Camera values are written as C-locale text: no group separators, no local digits.
    QLocale c = QLocale::c();
    c.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    setLocale(c);
}

QValidator::State HexValidator::validate(QString& input, int& pos) const
{
    if (input.isEmpty() || input == QLatin1String("0x")) {
        return Intermediate;
    }
    bool ok = false;
    qlonglong number = 0;
    if (input.startsWith(QLatin1String("0x"))) {
        // Unsigned parsing, so that "0x-5" is not taken for a negative number.
        const qulonglong digits = input.mid(2).toULongLong(&ok, 16);
        ok = ok && digits <= qulonglong(std::numeric_limits<qlonglong>::max());
        number = qlonglong(digits);
    } else {
        number = input.toLongLong(&ok, 10);
    }
    if (!ok) {
        return Invalid;
    }
    // The verdict is on the decimal text; the input itself stays as the user typed it.
    QString decimal = QStringLiteral("%1").arg(number);
    int decimalPos = decimal.size();
    Q_UNUSED(pos)
    return QIntValidator::validate(decimal, decimalPos);
}
