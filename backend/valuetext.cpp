#include "valuetext.h"

#include <parametercollection/parameterdata.h>

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
    switch (notation) {
    case FloatParameterData::Fixed:
        return QString::number(v, 'f', precision);
    case FloatParameterData::Scientific:
        return QString::number(v, 'e', precision);
    default:
        return QString::number(v, 'g', qMax(precision, 6));
    }
}

} // namespace Backend
