#include "internal/legacy/hexvalidator.h"

#include <QLineEdit>
#include <QtTest>

Q_DECLARE_METATYPE(QValidator::State)

class tst_HexValidator : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldJudgeHexadecimalAndDecimalText_data()
    {
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QValidator::State>("expected");

        QTest::newRow("empty") << 0 << 255 << "" << QValidator::Intermediate;
        QTest::newRow("bare prefix") << 0 << 255 << "0x" << QValidator::Intermediate;
        QTest::newRow("hex lower case") << 0 << 255 << "0xff" << QValidator::Acceptable;
        QTest::newRow("hex upper case digits") << 0 << 65535 << "0xBEEF" << QValidator::Acceptable;
        QTest::newRow("hex zero") << 0 << 255 << "0x0" << QValidator::Acceptable;
        QTest::newRow("hex leading zeros") << 0 << 255 << "0x00a" << QValidator::Acceptable;
        QTest::newRow("decimal") << 0 << 255 << "200" << QValidator::Acceptable;
        QTest::newRow("decimal zero") << 0 << 255 << "0" << QValidator::Acceptable;
        QTest::newRow("negative decimal in range") << -10 << 10 << "-7" << QValidator::Acceptable;
        // Above the maximum but with no more digits than it: still being typed.
        QTest::newRow("hex above maximum, same digit count")
            << 0 << 255 << "0x1ff" << QValidator::Intermediate;
        QTest::newRow("decimal above maximum, same digit count")
            << 0 << 255 << "300" << QValidator::Intermediate;
        QTest::newRow("hex far above maximum") << 0 << 255 << "0x1000" << QValidator::Invalid;
        QTest::newRow("decimal far above maximum") << 0 << 255 << "4096" << QValidator::Invalid;
        QTest::newRow("below minimum") << 0 << 255 << "-1" << QValidator::Invalid;
        QTest::newRow("not a hex digit") << 0 << 255 << "0xfg" << QValidator::Invalid;
        QTest::newRow("hex digits without prefix") << 0 << 255 << "ff" << QValidator::Invalid;
        QTest::newRow("upper case prefix") << 0 << 255 << "0XFF" << QValidator::Invalid;
        QTest::newRow("sign after prefix") << -255 << 255 << "0x-5" << QValidator::Invalid;
        QTest::newRow("letters") << 0 << 255 << "abc" << QValidator::Invalid;
        QTest::newRow("lone minus") << -10 << 10 << "-" << QValidator::Invalid;
        QTest::newRow("group separator") << 0 << 100000 << "1,000" << QValidator::Invalid;
        QTest::newRow("beyond 64 bits") << 0 << 255 << "0x1ffffffffffffffff" << QValidator::Invalid;
        QTest::newRow("int32 maximum in hex")
            << 0 << 2147483647 << "0x7fffffff" << QValidator::Acceptable;
        QTest::newRow("one past int32 maximum in hex")
            << 0 << 2147483647 << "0x80000000" << QValidator::Intermediate;
    }
    void shouldJudgeHexadecimalAndDecimalText()
    {
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(QString, input);
        QFETCH(QValidator::State, expected);

        HexValidator validator(minimum, maximum, nullptr);
        QString text = input;
        int pos = text.size();
        QCOMPARE(validator.validate(text, pos), expected);
        // The input is judged, never rewritten.
        QCOMPARE(text, input);
    }

    void shouldKeepTheRangeItWasGiven()
    {
        QObject owner;
        auto* validator = new HexValidator(3, 300, &owner);
        QCOMPARE(validator->bottom(), 3);
        QCOMPARE(validator->top(), 300);
        QCOMPARE(validator->parent(), &owner);
    }

    void shouldRefuseKeystrokesThatMakeTheTextInvalid()
    {
        // Given a line edit checked by the validator for 0..0xffff
        QLineEdit edit;
        edit.setValidator(new HexValidator(0, 0xffff, &edit));

        // When hexadecimal text with stray characters is typed
        QTest::keyClicks(&edit, "0xzb-e+e!f");

        // Then only what keeps the text a number got in
        QCOMPARE(edit.text(), QStringLiteral("0xbeef"));
        QVERIFY(edit.hasAcceptableInput());
    }

    void shouldStopTypingAtTheFirstDigitThatLeavesTheRange()
    {
        QLineEdit edit;
        edit.setValidator(new HexValidator(0, 255, &edit));

        QTest::keyClicks(&edit, "0x1fff");

        // "0x1ff" is 511: too big, but short enough to become valid by editing; "0x1fff" is not.
        QCOMPARE(edit.text(), QStringLiteral("0x1ff"));
        QVERIFY(!edit.hasAcceptableInput());
    }

    void shouldTakeDecimalTextAsWell()
    {
        QLineEdit edit;
        edit.setValidator(new HexValidator(0, 0xffff, &edit));

        QTest::keyClicks(&edit, "48879");

        QCOMPARE(edit.text(), QStringLiteral("48879"));
        QVERIFY(edit.hasAcceptableInput());
    }
};

QTEST_MAIN(tst_HexValidator)
#include "tst_hexvalidator.moc"
