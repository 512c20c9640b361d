#pragma once

#include <QIntValidator>

// An integer validator that takes "0x" hexadecimal text as well as decimal text; the range
// check is QIntValidator's, applied to the number in decimal.
class HexValidator : public QIntValidator {
    Q_OBJECT
public:
    HexValidator(int minimum, int maximum, QObject* parent);

    QValidator::State validate(QString& input, int& pos) const override;
};
