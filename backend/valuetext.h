#pragma once

#include <QByteArray>
#include <QString>

namespace Backend {

// How the value of a number reads in a tree, by its GenICam representation and notation.
QString integerText(qint64 value, const QString& representation);
QString floatText(double value, int displayNotation, int displayPrecision);

// A register's bytes as hexadecimal, "0x0011AABB"; a long register shows its first bytes and
// its length: "0x0011AABB… (4096 bytes)".
QString registerText(const QByteArray& bytes);
// The bytes of hexadecimal text ("0x0011AABB", "00 11 aa bb"); false when the text is not
// whole bytes of hexadecimal digits.
bool registerBytes(const QString& text, QByteArray* bytes);

} // namespace Backend
