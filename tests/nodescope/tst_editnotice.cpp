#include "testsupport.h"

#include "internal/legacy/editnotice.h"

#include <parametercollection/exception.h>
#include <parametercollection/parameterdata.h>

#include <QtTest>

using namespace ParameterCollection;

// What the status line is told when a typed value is not written as typed.
class tst_EditNotice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldSayWhichIntegerWasWrittenInsteadAndWhy_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<qint64>("written");
        QTest::addColumn<QString>("text");
        QTest::newRow("off the increment")
            << "1000" << qint64(992) << "Width: 1000 is not on the increment 16, wrote 992 px";
        QTest::newRow("above the maximum")
            << "5000" << qint64(1920) << "Width: 5000 is above the maximum 1920, wrote 1920 px";
        QTest::newRow("below the minimum")
            << "3" << qint64(16) << "Width: 3 is below the minimum 16, wrote 16 px";
        QTest::newRow("as typed") << "992" << qint64(992) << "";
    }
    void shouldSayWhichIntegerWasWrittenInsteadAndWhy()
    {
        QFETCH(QString, typed);
        QFETCH(qint64, written);
        QFETCH(QString, text);
        QCOMPARE(EditNotice::integerWritten(QStringLiteral("Width"), typed, typed.toLongLong(),
                                            written, 16, 1920, 16, QStringLiteral("px")),
                 text);
    }

    void shouldSayWhichFloatWasWrittenInsteadAndWhy()
    {
        const QLocale c = QLocale::c();
        QCOMPARE(EditNotice::floatWritten(QStringLiteral("Exposure Time"), "99999999", 99999999.0,
                                          1e7, 20.0, 1e7, 0.0, QString::fromUtf8("µs"), c),
                 QString::fromUtf8("Exposure Time: 99999999 is above the maximum 10000000, "
                                   "wrote 10000000 µs"));
        QCOMPARE(EditNotice::floatWritten(QStringLiteral("Gain"), "0.3", 0.3, 0.25, 0.0, 10.0, 0.25,
                                          QStringLiteral("dB"), c),
                 QStringLiteral("Gain: 0.3 is not on the increment 0.25, wrote 0.25 dB"));
        QCOMPARE(EditNotice::floatWritten(QStringLiteral("Gain"), "0.0000001", 1e-7, 0.5, 0.5, 10.0,
                                          0.0, QString(), c),
                 QStringLiteral("Gain: 0.0000001 is below the minimum 0.5, wrote 0.5"));
        // The last bits of a double are not worth a word
        QCOMPARE(EditNotice::floatWritten(QStringLiteral("Gain"), "0.1", 0.1, 0.1 + 1e-17, 0.0,
                                          10.0, 0.0, QString(), c),
                 QString());
    }

    void shouldSayWhyTypedTextWasRefused()
    {
        QCOMPARE(EditNotice::notANumber(QStringLiteral("Width"), QStringLiteral("12a"),
                                        QStringLiteral("1920")),
                 QStringLiteral("Width: \"12a\" is not a number, the value stays 1920"));
        QCOMPARE(
            EditNotice::notAnAddress(QStringLiteral("IP Address"), QStringLiteral("192.168.10.300"),
                                     QStringLiteral("IPV4Address"), QStringLiteral("192.168.10.3")),
            QStringLiteral("IP Address: \"192.168.10.300\" is not an IPv4 address, the value "
                           "stays 192.168.10.3"));
        QCOMPARE(EditNotice::notAnAddress(QStringLiteral("MAC"), QStringLiteral("00:11"),
                                          QStringLiteral("MACAddress"),
                                          QStringLiteral("00:11:22:33:44:55")),
                 QStringLiteral("MAC: \"00:11\" is not a MAC address, the value stays "
                                "00:11:22:33:44:55"));
        QCOMPARE(EditNotice::outOfRange(QStringLiteral("Plain"), QStringLiteral("50000"), 50000, 0,
                                        1000, QStringLiteral("42")),
                 QStringLiteral("Plain: 50000 is above the maximum 1000, the value stays 42"));
    }

    void shouldNameTheFeatureOnceWhenAWriteIsRefused()
    {
        const RangeException refusal(QStringLiteral("Width"),
                                     QStringLiteral("value 5000 above maximum 1920"));
        QCOMPARE(EditNotice::writeRefused(QStringLiteral("Width"), refusal),
                 QStringLiteral("Width: value 5000 above maximum 1920"));
        QCOMPARE(EditNotice::cameraLost(QStringLiteral("Trigger Mode")),
                 QStringLiteral("Trigger Mode: the camera is lost, nothing was written"));
    }

    void shouldGiveRangeIncrementAndUnitOfNumbers()
    {
        IntegerParameterData integer;
        integer.type = IntegerType;
        integer.min = 16;
        integer.max = 1920;
        integer.increment = 16;
        integer.unit = QStringLiteral("px");
        QCOMPARE(EditNotice::rangeText(integer, QLocale::c()),
                 QStringLiteral("Minimum 16, maximum 1920, increment 16\nUnit: px"));
        FloatParameterData number;
        number.type = FloatType;
        number.min = 20.0;
        number.max = 1e7;
        QCOMPARE(EditNotice::rangeText(number, QLocale::c()),
                 QStringLiteral("Minimum 20, maximum 10000000, no increment"));
        number.hasIncrement = true;
        number.increment = 0.5;
        QCOMPARE(EditNotice::rangeText(number, QLocale::c()),
                 QStringLiteral("Minimum 20, maximum 10000000, increment 0.5"));
        QCOMPARE(EditNotice::rangeText(EnumParameterData(), QLocale::c()), QString());
    }

    void shouldNameFeaturesAsTheUserSeesThem()
    {
        const auto camera = openSimulatedCamera();
        QCOMPARE(EditNotice::featureLabel(
                     camera->collection->getParameter("@CameraDevice/ExposureTime").data()),
                 QStringLiteral("Exposure Time"));
        QCOMPARE(EditNotice::featureLabel(nullptr), QString());
    }
};

QTEST_MAIN(tst_EditNotice)
#include "tst_editnotice.moc"
