#include "valuetext.h"

#include <parametercollection/parameterdata.h>

#include <QLocale>
#include <QStringList>

namespace Backend {

QString integerText(qint64 v, const QString& representation)
{
    if (representation == QLatin1String("HexNumber")) {
        return QStringLiteral("0x") + QString::number(quint64(v), 16).toUpper();
    }
    if (representation == QLatin1String("IPV4Address")) {
        const quint32 a = quint32(v);
        return QStringLiteral("%1.%2.%3.%4")
            .arg(a >> 24)
            .arg((a >> 16) & 0xff)
            .arg((a >> 8) & 0xff)
            .arg(a & 0xff);
    }
    if (representation == QLatin1String("MACAddress")) {
        QStringList parts;
        for (int shift = 40; shift >= 0; shift -= 8) {
            parts << QStringLiteral("%1").arg((quint64(v) >> shift) & 0xff, 2, 16,
                                              QLatin1Char('0'));
        }
        return parts.join(QLatin1Char(':')).toUpper();
    }
    return QString::number(v);
}

QString floatText(double v, int notation, int precision)
{
    using ParameterCollection::FloatParameterData;
    // A description may declare any precision; more digits than a double holds mean nothing.
    const int digits = qBound(0, precision, 17);
    switch (notation) {
    case FloatParameterData::Fixed:
        return QString::number(v, 'f', digits);
    case FloatParameterData::Scientific:
        return QString::number(v, 'e', digits);
    default:
        // The shortest digits that read back as the same double, never in exponent form.
        return QString::number(v, 'f', QLocale::FloatingPointShortest);
    }
}

QString registerText(const QByteArray& bytes)
{
    const int shown = 32;
    if (bytes.isEmpty()) {
        return QStringLiteral("(0 bytes)");
    }
    QString text = QStringLiteral("0x") + QString::fromLatin1(bytes.left(shown).toHex().toUpper());
    if (bytes.size() > shown) {
        text += QStringLiteral("\u2026 (%1 bytes)").arg(bytes.size());
    }
    return text;
}

bool registerBytes(const QString& text, QByteArray* bytes)
{
    QString digits = text.trimmed();
    if (digits.startsWith(QLatin1String("0x")) || digits.startsWith(QLatin1String("0X"))) {
        digits = digits.mid(2);
    }
    digits.remove(QLatin1Char(' '));
    if (digits.size() % 2 != 0) {
        return false;
    }
    for (const QChar c : qAsConst(digits)) {
        const char a = c.toLatin1();
        if (!((a >= '0' && a <= '9') || (a >= 'a' && a <= 'f') || (a >= 'A' && a <= 'F'))) {
            return false;
        }
    }
    *bytes = QByteArray::fromHex(digits.toLatin1());
    return true;
}

} // namespace Backend
