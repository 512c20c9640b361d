#pragma once

#include <QString>

namespace Backend {

// How the value of a number reads in a tree, by its GenICam representation and notation.
QString integerText(qint64 value, const QString& representation);
QString floatText(double value, int displayNotation, int displayPrecision);

} // namespace Backend
