#include "editortestsupport.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/twomodedoublecomboslider.h"

#include <QLocale>
#include <QSignalSpy>
#include <QSlider>
#include <QtTest>

#include <cmath>

namespace {

// The logarithmic mapping, written out from its definition.
struct LogMapping {
    double minimum;
    double maximum;
    int sliderMin;
    int sliderMax;

    double logMin() const { return std::log2(minimum); }
    double logMax() const { return std::log2(maximum); }
    double scale() const { return (logMax() - logMin()) / double(sliderMax - sliderMin); }
    double value(int p) const
    {
        return qBound(minimum, std::exp2(logMin() + double(p - sliderMin) * scale()), maximum);
    }
    int position(double v) const
    {
        return int(std::round((std::log2(v) - logMin()) / scale() + double(sliderMin)));
    }
};

LogMapping mappingOf(const TwoModeDoubleComboSlider& combo)
{
    return {combo.minimum(), combo.maximum(), combo.slider()->minimum(), combo.slider()->maximum()};
}

} // namespace

class tst_TwoModeDoubleComboSlider : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void shouldMapSliderPositionsToValuesLogarithmically_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<int>("position");
        QTest::newRow("1..1000, first position") << 1.0 << 1000.0 << 0;
        QTest::newRow("1..1000, middle") << 1.0 << 1000.0 << 5000;
        QTest::newRow("1..1000, somewhere") << 1.0 << 1000.0 << 1234;
        QTest::newRow("1..1000, last position") << 1.0 << 1000.0 << 10000;
        QTest::newRow("20..1e7, first position") << 20.0 << 1e7 << 0;
        QTest::newRow("20..1e7, middle") << 20.0 << 1e7 << 5000;
        QTest::newRow("20..1e7, somewhere") << 20.0 << 1e7 << 8765;
        QTest::newRow("20..1e7, last position") << 20.0 << 1e7 << 10000;
        QTest::newRow("0.001..0.5, middle") << 0.001 << 0.5 << 5000;
    }
    void shouldMapSliderPositionsToValuesLogarithmically()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(int, position);
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(minimum, maximum, 0.0);
        QVERIFY(combo.isLogarithmic());
        const LogMapping expected = mappingOf(combo);
        QCOMPARE(expected.sliderMin, 0);
        QCOMPARE(expected.sliderMax, TwoModeDoubleComboSlider::SliderResolution);

        QCOMPARE(combo.sliderPositionToValue(position), expected.value(position));
    }

    void shouldReachTheEndsAndTheGeometricMean()
    {
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(1.0, 1000.0, 0.0);

        QCOMPARE(combo.sliderPositionToValue(0), 1.0);
        QCOMPARE(combo.sliderPositionToValue(10000), 1000.0);
        QCOMPARE(combo.sliderPositionToValue(5000), std::sqrt(1000.0));
        QCOMPARE(combo.valueToSliderPosition(std::sqrt(1000.0)), 5000);
    }

    void shouldMapValuesToSliderPositionsLogarithmically_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("position");
        QTest::newRow("1..1000, minimum") << 1.0 << 1000.0 << 1.0 << 0;
        QTest::newRow("1..1000, maximum") << 1.0 << 1000.0 << 1000.0 << 10000;
        QTest::newRow("1..1000, 100") << 1.0 << 1000.0 << 100.0 << 6667;
        QTest::newRow("1..1000, 10") << 1.0 << 1000.0 << 10.0 << 3333;
        QTest::newRow("20..1e7, minimum") << 20.0 << 1e7 << 20.0 << 0;
        QTest::newRow("20..1e7, 100") << 20.0 << 1e7 << 100.0 << 1226;
        QTest::newRow("20..1e7, 50000") << 20.0 << 1e7 << 50000.0 << 5962;
        QTest::newRow("20..1e7, maximum") << 20.0 << 1e7 << 1e7 << 10000;
    }
    void shouldMapValuesToSliderPositionsLogarithmically()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(double, value);
        QFETCH(int, position);
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(minimum, maximum, 0.0);
        const LogMapping expected = mappingOf(combo);
        // The table's positions are the definition's, rounded.
        QCOMPARE(expected.position(value), position);

        QCOMPARE(combo.valueToSliderPosition(value), position);
    }

    void shouldKeepLogMinLogMaxAndScale()
    {
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);

        combo.setRangeAndStep(20.0, 1e7, 0.0);

        const LogMapping expected = mappingOf(combo);
        QCOMPARE(combo.logMin(), expected.logMin());
        QCOMPARE(combo.logMax(), expected.logMax());
        QCOMPARE(combo.scale(), expected.scale());
    }

    void shouldRecomputeTheScaleWhenMinimumOrMaximumChanges_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::newRow("minimum") << "minimum" << 10.0 << 1000.0;
        QTest::newRow("maximum") << "maximum" << 1.0 << 100000.0;
        QTest::newRow("range") << "range" << 2.0 << 2000.0;
        QTest::newRow("range and step") << "rangeAndStep" << 0.5 << 50.0;
    }
    void shouldRecomputeTheScaleWhenMinimumOrMaximumChanges()
    {
        QFETCH(QString, change);
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(1.0, 1000.0, 0.0);
        combo.setValue(30.0);

        if (change == QLatin1String("minimum")) {
            combo.setMinimum(minimum);
        } else if (change == QLatin1String("maximum")) {
            combo.setMaximum(maximum);
        } else if (change == QLatin1String("range")) {
            combo.setRange(minimum, maximum);
        } else {
            combo.setRangeAndStep(minimum, maximum, 0.0);
        }

        const LogMapping expected{minimum, maximum, 0, 10000};
        QCOMPARE(combo.logMin(), expected.logMin());
        QCOMPARE(combo.logMax(), expected.logMax());
        QCOMPARE(combo.scale(), expected.scale());
        QCOMPARE(combo.sliderPositionToValue(2500), expected.value(2500));
        // The handle moved to the value's place on the new scale.
        QCOMPARE(combo.slider()->value(), expected.position(combo.value()));
    }

    void shouldRunLinearlyWhereTheMinimumIsNotPositive_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::newRow("from zero") << 0.0 << 1000.0;
        QTest::newRow("across zero") << -10.0 << 10.0;
        QTest::newRow("negative only") << -1000.0 << -1.0;
    }
    void shouldRunLinearlyWhereTheMinimumIsNotPositive()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        DoubleComboSlider linear;

        combo.setRangeAndStep(minimum, maximum, 0.0);
        linear.setRangeAndStep(minimum, maximum, 0.0);

        QVERIFY(!combo.isLogarithmic());
        QCOMPARE(combo.mode(), TwoModeDoubleComboSlider::LogarithmicMode);
        for (int p : {0, 1, 2500, 5000, 9999, 10000}) {
            const double value = combo.sliderPositionToValue(p);
            QVERIFY2(std::isfinite(value), qPrintable(QString::number(p)));
            QCOMPARE(value, linear.sliderPositionToValue(p));
        }
        for (double v : {minimum, 0.0, (minimum + maximum) / 2, maximum}) {
            QCOMPARE(combo.valueToSliderPosition(v), linear.valueToSliderPosition(v));
        }
    }

    void shouldTurnLogarithmicOnceTheMinimumIsPositive()
    {
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(0.0, 1000.0, 0.0);
        QVERIFY(!combo.isLogarithmic());

        combo.setMinimum(1.0);

        QVERIFY(combo.isLogarithmic());
        QCOMPARE(combo.logMin(), 0.0);
    }

    void shouldPutValuesAtOrBelowZeroAtTheStartInsteadOfFailing()
    {
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(1.0, 1000.0, 0.0);

        QCOMPARE(combo.valueToSliderPosition(0.0), 0);
        QCOMPARE(combo.valueToSliderPosition(-5.0), 0);
        QCOMPARE(combo.valueToSliderPosition(std::nan("")), 0);
    }

    void shouldSwitchModesWithoutEmitting()
    {
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(1.0, 1000.0, 0.0);
        combo.setValue(100.0);
        QCOMPARE(combo.slider()->value(), 6667);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        combo.setMode(TwoModeDoubleComboSlider::LinearMode);

        QVERIFY(!combo.isLogarithmic());
        QCOMPARE(combo.slider()->value(), 991);
        QCOMPARE(combo.value(), 100.0);
        QCOMPARE(changed.count(), 0);

        combo.setMode(TwoModeDoubleComboSlider::LogarithmicMode);
        QCOMPARE(combo.slider()->value(), 6667);
        QCOMPARE(changed.count(), 0);
    }

    void shouldEmitTheLogarithmicValueWhenTheUserMovesTheSlider()
    {
        // Given a logarithmic slider on 1..1000 at 100
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(1.0, 1000.0, 0.0);
        combo.setValue(100.0);
        combo.show();
        const LogMapping expected = mappingOf(combo);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        // When the user presses Right on the slider
        QTest::keyClick(combo.slider(), Qt::Key_Right);

        // Then it moves by a hundredth of the slider and announces that position's value
        QCOMPARE(combo.slider()->value(), 6767);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), expected.value(6767));
        QCOMPARE(combo.value(), expected.value(6767));
        QCOMPARE(combo.spinBox()->value(), expected.value(6767));
    }

    void shouldPutTheHandleWhereATypedValueBelongs()
    {
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(20.0, 1e7, 0.0);
        combo.setValue(20.0);
        combo.show();
        const LogMapping expected = mappingOf(combo);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        typeAndEnter(combo.spinBox(), QStringLiteral("50000"));

        QCOMPARE(changed.count(), 1);
        QCOMPARE(combo.value(), 50000.0);
        QCOMPARE(combo.slider()->value(), expected.position(50000.0));
    }

    void shouldKeepSliderValuesOnTheIncrementGrid()
    {
        TwoModeDoubleComboSlider combo(nullptr, TwoModeDoubleComboSlider::LogarithmicMode);
        combo.setRangeAndStep(1.0, 1000.0, 0.5);
        combo.setValue(100.0);
        combo.show();
        const LogMapping expected = mappingOf(combo);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        combo.slider()->triggerAction(QAbstractSlider::SliderPageStepAdd);

        QCOMPARE(changed.count(), 1);
        const double value = combo.value();
        QCOMPARE(value, combo.trimValue(expected.value(combo.slider()->value())));
        QCOMPARE(std::fmod(value - 1.0, 0.5), 0.0);
    }
};

QTEST_MAIN(tst_TwoModeDoubleComboSlider)
#include "tst_twomodedoublecomboslider.moc"
