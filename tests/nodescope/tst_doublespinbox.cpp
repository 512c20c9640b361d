#include "editortestsupport.h"

#include "internal/legacy/doublespinbox.h"

#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <limits>

class tst_DoubleSpinBox : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void cleanupTestCase() { QLocale::setDefault(QLocale::c()); }

    void shouldShowTheUnitAsSuffix_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QString>("text");
        QTest::newRow("microseconds")
            << QStringLiteral("µs") << QStringLiteral(" µs") << QStringLiteral("12.5 µs");
        QTest::newRow("decibel") << "dB"
                                 << " dB"
                                 << "12.5 dB";
        QTest::newRow("no unit") << ""
                                 << ""
                                 << "12.5";
    }
    void shouldShowTheUnitAsSuffix()
    {
        QFETCH(QString, unit);
        QFETCH(QString, suffix);
        QFETCH(QString, text);
        DoubleSpinBox box;
        box.setRangeAndStep(0.0, 100.0, 0.0);
        box.setNotation(DoubleSpinBox::Fixed, 1);

        box.setUnit(unit);
        box.setValue(12.5);

        QCOMPARE(box.suffix(), suffix);
        QCOMPARE(box.text(), text);
    }

    void shouldWriteTheValueInItsNotationAndPrecision_data()
    {
        QTest::addColumn<int>("notation");
        QTest::addColumn<int>("precision");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("increment");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("fixed") << int(DoubleSpinBox::Fixed) << 1 << 1.0 << 1000.0 << 0.0 << 100.0
                               << "100.0";
        QTest::newRow("fixed, three decimals")
            << int(DoubleSpinBox::Fixed) << 3 << 0.0 << 24.0 << 0.0 << 6.5 << "6.500";
        QTest::newRow("fixed, the increment needs more decimals")
            << int(DoubleSpinBox::Fixed) << 1 << 0.0 << 10.0 << 0.05 << 1.25 << "1.25";
        QTest::newRow("scientific")
            << int(DoubleSpinBox::Scientific) << 3 << 1e-6 << 1e-2 << 0.0 << 5e-4 << "5.000e-04";
        QTest::newRow("automatic")
            << int(DoubleSpinBox::Automatic) << 4 << 0.0 << 1.0 << 0.0 << 0.25 << "0.25";
        // Automatic never turns to exponents: the digits before the point all stay
        QTest::newRow("automatic, large") << int(DoubleSpinBox::Automatic) << 6 << 0.0 << 1e9 << 0.0
                                          << 123456789.0 << "123456789";
        QTest::newRow("no group separators")
            << int(DoubleSpinBox::Fixed) << 1 << 20.0 << 1e7 << 0.0 << 1234567.5 << "1234567.5";
    }
    void shouldWriteTheValueInItsNotationAndPrecision()
    {
        QFETCH(int, notation);
        QFETCH(int, precision);
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(double, increment);
        QFETCH(double, value);
        QFETCH(QString, text);
        DoubleSpinBox box;
        box.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));

        box.setNotation(notation, precision);
        box.setRangeAndStep(minimum, maximum, increment);
        box.setValue(value);

        QCOMPARE(box.text(), text);
        QCOMPARE(box.value(), value);
    }

    void shouldRewriteTheTextWhenTheNotationChanges()
    {
        DoubleSpinBox box;
        box.setRangeAndStep(1e-6, 1e-2, 0.0);
        box.setValue(5e-4);

        box.setNotation(DoubleSpinBox::Scientific, 2);

        QCOMPARE(box.text(), QStringLiteral("5.00e-04"));
    }

    void shouldDeriveTheStepFromTheRangeWithoutAnIncrement_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("step");
        QTest::newRow("1..1000") << 1.0 << 1000.0 << 10.0;
        QTest::newRow("0..24") << 0.0 << 24.0 << 0.1;
        QTest::newRow("-100..100") << -100.0 << 100.0 << 1.0;
        QTest::newRow("0..1") << 0.0 << 1.0 << 0.01;
        QTest::newRow("1e-6..1e-2") << 1e-6 << 1e-2 << 1e-4;
        QTest::newRow("20..1e7") << 20.0 << 1e7 << 1e5;
        QTest::newRow("empty range") << 5.0 << 5.0 << 1.0;
        QTest::newRow("inverted range") << 5.0 << 1.0 << 1.0;
        QTest::newRow("unbounded")
            << -std::numeric_limits<double>::max() << std::numeric_limits<double>::max() << 1.0;
    }
    void shouldDeriveTheStepFromTheRangeWithoutAnIncrement()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(double, step);
        QCOMPARE(DoubleSpinBox::derivedStep(minimum, maximum), step);

        DoubleSpinBox box;
        box.setRangeAndStep(minimum, maximum, 0.0);

        QCOMPARE(box.singleStep(), step);
        QCOMPARE(box.increment(), 0.0);
    }

    void shouldStepByTheIncrementWhereThereIsOne()
    {
        DoubleSpinBox box;
        box.setRangeAndStep(0.0, 100.0, 0.5);

        QCOMPARE(box.singleStep(), 0.5);
        QCOMPARE(box.increment(), 0.5);
    }

    void shouldShowTheRangeAsToolTip_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("increment");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("without increment") << 1.0 << 1000.0 << 0.0 << "Range: 1..1000";
        QTest::newRow("with increment") << 0.0 << 100.0 << 0.5 << "Range: 0..100 (Increment: 0.5)";
        QTest::newRow("small numbers") << 1e-6 << 0.01 << 0.0 << "Range: 0.000001..0.01";
        QTest::newRow("large numbers, no separators")
            << 20.0 << 1e7 << 0.0 << "Range: 20..10000000";
        QTest::newRow("negative") << -100.0 << 100.0 << 0.25
                                  << "Range: -100..100 (Increment: 0.25)";
    }
    void shouldShowTheRangeAsToolTip()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(double, increment);
        QFETCH(QString, toolTip);
        DoubleSpinBox box;
        box.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));

        box.setRangeAndStep(minimum, maximum, increment);

        QCOMPARE(box.toolTip(), toolTip);
    }

    void shouldWriteTheToolTipInTheWidgetsLocale()
    {
        DoubleSpinBox box;
        box.setRangeAndStep(0.5, 2.5, 0.25);

        box.setLocale(QLocale(QLocale::German, QLocale::Germany));

        QCOMPARE(box.toolTip(), QStringLiteral("Range: 0,5..2,5 (Increment: 0,25)"));
    }

    void shouldPutATypedValueOnTheIncrementGrid_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("expected");
        QTest::newRow("rounds up") << 0.0 << "14.3" << 14.5;
        QTest::newRow("rounds down") << 0.0 << "14.2" << 14.0;
        QTest::newRow("grid from the minimum") << 0.3 << "14.3" << 14.3;
        QTest::newRow("grid from the minimum, between") << 0.3 << "14.0" << 13.8;
        QTest::newRow("never past the last grid point") << 0.3 << "100" << 99.8;
    }
    void shouldPutATypedValueOnTheIncrementGrid()
    {
        QFETCH(double, minimum);
        QFETCH(QString, typed);
        QFETCH(double, expected);
        DoubleSpinBox box;
        box.setNotation(DoubleSpinBox::Fixed, 1);
        box.setRangeAndStep(minimum, 100.0, 0.5);
        box.setValue(10.3);
        box.show();

        typeAndEnter(&box, typed);

        QCOMPARE(box.value(), expected);
    }

    void shouldTakeANumberOutsideTheRangeAsTheNearestBound_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("expected");
        QTest::newRow("above") << "5000" << 1000.0;
        QTest::newRow("below") << "0.5" << 1.0;
        QTest::newRow("far below") << "-7" << 1.0;
    }
    void shouldTakeANumberOutsideTheRangeAsTheNearestBound()
    {
        QFETCH(QString, typed);
        QFETCH(double, expected);
        DoubleSpinBox box;
        box.setRangeAndStep(1.0, 1000.0, 0.0);
        box.setValue(100.0);
        box.show();
        QSignalSpy changed(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));

        typeAndEnter(&box, typed);

        QCOMPARE(box.value(), expected);
        QCOMPARE(changed.count(), 1);
    }

    void shouldKeepTheValueWhenTheTypingIsNoNumber()
    {
        DoubleSpinBox box;
        box.setRangeAndStep(1.0, 1000.0, 0.0);
        box.setValue(100.0);
        box.show();
        QSignalSpy changed(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));

        typeAndEnter(&box, QStringLiteral("1e"));

        QCOMPARE(box.value(), 100.0);
        QCOMPARE(changed.count(), 0);
    }

    void shouldRefuseCharactersThatCannotBeInANumber_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<int>("state");
        QTest::newRow("letters") << "abc" << int(QValidator::Invalid);
        QTest::newRow("a letter in a number") << "12x" << int(QValidator::Invalid);
        QTest::newRow("empty") << "" << int(QValidator::Intermediate);
        QTest::newRow("sign only") << "-" << int(QValidator::Intermediate);
        QTest::newRow("exponent under way") << "2e" << int(QValidator::Intermediate);
        QTest::newRow("out of range") << "5000" << int(QValidator::Intermediate);
        QTest::newRow("number") << "12.5" << int(QValidator::Acceptable);
        QTest::newRow("number with unit") << "12.5 dB" << int(QValidator::Acceptable);
        QTest::newRow("exponent") << "2.5e2" << int(QValidator::Acceptable);
    }
    void shouldRefuseCharactersThatCannotBeInANumber()
    {
        QFETCH(QString, input);
        QFETCH(int, state);
        DoubleSpinBox box;
        box.setUnit(QStringLiteral("dB"));
        box.setRangeAndStep(1.0, 1000.0, 0.0);
        int pos = input.size();

        QCOMPARE(int(box.validate(input, pos)), state);
    }

    void shouldReadTypedExponentNotation()
    {
        DoubleSpinBox box;
        box.setNotation(DoubleSpinBox::Scientific, 3);
        box.setUnit(QStringLiteral("s"));
        box.setRangeAndStep(1e-6, 1e-2, 0.0);
        box.setValue(5e-4);
        box.show();

        typeAndEnter(&box, QStringLiteral("2.5e-3"));

        QCOMPARE(box.value(), 2.5e-3);
        QCOMPARE(box.text(), QStringLiteral("2.500e-03 s"));
    }

    void shouldReadTheLocalesDecimalPointAndThePlainOne_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("expected");
        QTest::newRow("German decimal comma") << "12,5" << 12.5;
        QTest::newRow("plain decimal point") << "12.5" << 12.5;
    }
    void shouldReadTheLocalesDecimalPointAndThePlainOne()
    {
        QFETCH(QString, typed);
        QFETCH(double, expected);
        DoubleSpinBox box;
        box.setLocale(QLocale(QLocale::German, QLocale::Germany));
        box.setNotation(DoubleSpinBox::Fixed, 2);
        box.setRangeAndStep(0.0, 100.0, 0.0);
        box.setValue(1.0);
        box.show();

        typeAndEnter(&box, typed);

        QCOMPARE(box.value(), expected);
        QCOMPARE(box.text(), QStringLiteral("12,50"));
    }

    void shouldStepOnTheIncrementGridAndStopAtItsLastPoint()
    {
        // Given a grid 0.3, 0.8, ... whose last point 99.8 lies below the maximum
        DoubleSpinBox box;
        box.setRangeAndStep(0.3, 100.0, 0.5);
        box.setValue(98.8);
        box.show();

        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), 99.3);
        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), 99.8);
        QTest::keyClick(&box, Qt::Key_Up);

        QCOMPARE(box.value(), 99.8);
    }

    void shouldStepOntoTheGridFromAValueTheDevicePlacedOffIt()
    {
        DoubleSpinBox box;
        box.setRangeAndStep(0.0, 100.0, 0.5);
        box.setValue(12.3);
        box.show();
        QCOMPARE(box.value(), 12.3);

        QTest::keyClick(&box, Qt::Key_Up);

        QCOMPARE(box.value(), 13.0);
    }

    void shouldStepByTheIncrementOnTheWheel()
    {
        DoubleSpinBox box;
        box.setRangeAndStep(0.0, 100.0, 0.5);
        box.setValue(10.0);
        QVERIFY(giveFocus(&box));

        QVERIFY(turnWheel(&box, 120));
        QCOMPARE(box.value(), 10.5);
        QVERIFY(turnWheel(&box, -120));
        QVERIFY(turnWheel(&box, -120));

        QCOMPARE(box.value(), 9.5);
    }

    void shouldKeepSmallValuesThatTheDeviceReports()
    {
        DoubleSpinBox box;
        box.setNotation(DoubleSpinBox::Scientific, 3);
        box.setRangeAndStep(1e-9, 1e-6, 0.0);

        box.setValue(1.234e-8);

        QCOMPARE(box.value(), 1.234e-8);
        QCOMPARE(box.text(), QStringLiteral("1.234e-08"));
    }

    void shouldTrimValuesToRangeAndGrid_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("trimmed");
        QTest::newRow("inside, on the grid") << 10.5 << 10.5;
        QTest::newRow("inside, off the grid") << 10.6 << 10.5;
        QTest::newRow("below") << -3.0 << 0.0;
        QTest::newRow("above") << 300.0 << 100.0;
        QTest::newRow("not a number") << std::nan("") << 0.0;
    }
    void shouldTrimValuesToRangeAndGrid()
    {
        QFETCH(double, value);
        QFETCH(double, trimmed);
        DoubleSpinBox box;
        box.setRangeAndStep(0.0, 100.0, 0.5);

        QCOMPARE(box.trimValue(value), trimmed);
    }
};

QTEST_MAIN(tst_DoubleSpinBox)
#include "tst_doublespinbox.moc"
