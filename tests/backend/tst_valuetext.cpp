#include <valuetext.h>

#include <parametercollection/parameterdata.h>

#include <QtTest>

#include <limits>

using ParameterCollection::FloatParameterData;

class tst_ValueText : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldShowAutomaticFloatsAsPlainDecimals_data();
    void shouldShowAutomaticFloatsAsPlainDecimals();
    void shouldFollowTheDeclaredNotation();
    void shouldClampAnAbsurdPrecision();
    void shouldShowRegisterBytesAsBoundedHex();
    void shouldReadHexTextAsWholeBytes_data();
    void shouldReadHexTextAsWholeBytes();
};

void tst_ValueText::shouldShowAutomaticFloatsAsPlainDecimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("ten seconds in microseconds") << 1e7 << QStringLiteral("10000000");
    QTest::newRow("a tenth") << 0.1 << QStringLiteral("0.1");
    QTest::newRow("negative") << -627.7384615384616 << QStringLiteral("-627.7384615384616");
    QTest::newRow("zero") << 0.0 << QStringLiteral("0");
    QTest::newRow("tiny") << 2.5e-7 << QStringLiteral("0.00000025");
    QTest::newRow("whole") << 50.0 << QStringLiteral("50");
}

void tst_ValueText::shouldShowAutomaticFloatsAsPlainDecimals()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(Backend::floatText(value, FloatParameterData::Automatic, 6), text);
}

void tst_ValueText::shouldFollowTheDeclaredNotation()
{
    QCOMPARE(Backend::floatText(10000.0, FloatParameterData::Fixed, 1), QStringLiteral("10000.0"));
    QCOMPARE(Backend::floatText(12345.0, FloatParameterData::Scientific, 2),
             QStringLiteral("1.23e+04"));
}

void tst_ValueText::shouldClampAnAbsurdPrecision()
{
    // A description may declare any precision; the text stays the size of a double's digits.
    const QString text =
        Backend::floatText(1.5, FloatParameterData::Fixed, std::numeric_limits<int>::max());
    QCOMPARE(text, QStringLiteral("1.50000000000000000"));
    QCOMPARE(Backend::floatText(1.5, FloatParameterData::Fixed, -4), QStringLiteral("2"));
}

void tst_ValueText::shouldShowRegisterBytesAsBoundedHex()
{
    QCOMPARE(Backend::registerText(QByteArray::fromHex("0011aabb")), QStringLiteral("0x0011AABB"));
    const QString text = Backend::registerText(QByteArray(4096, '\x5a'));
    QVERIFY2(text.startsWith(QStringLiteral("0x5A5A")), qPrintable(text));
    QVERIFY2(text.endsWith(QStringLiteral("\u2026 (4096 bytes)")), qPrintable(text));
    QVERIFY2(text.size() < 100, qPrintable(text));
    QCOMPARE(Backend::registerText(QByteArray()), QStringLiteral("(0 bytes)"));
}

void tst_ValueText::shouldReadHexTextAsWholeBytes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("prefixed") << QStringLiteral("0x0011AABB") << true
                              << QByteArray::fromHex("0011aabb");
    QTest::newRow("spaced") << QStringLiteral(" 00 11 aa bb ") << true
                            << QByteArray::fromHex("0011aabb");
    QTest::newRow("half a byte") << QStringLiteral("0x123") << false << QByteArray();
    QTest::newRow("not hex") << QStringLiteral("zz") << false << QByteArray();
    QTest::newRow("not latin digits") << QStringLiteral("\u0661\u0662") << false << QByteArray();
}

void tst_ValueText::shouldReadHexTextAsWholeBytes()
{
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(QByteArray, bytes);
    QByteArray parsed;
    QCOMPARE(Backend::registerBytes(text, &parsed), ok);
    if (ok) {
        QCOMPARE(parsed, bytes);
    }
}

QTEST_GUILESS_MAIN(tst_ValueText)
#include "tst_valuetext.moc"
