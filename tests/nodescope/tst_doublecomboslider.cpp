#include "editortestsupport.h"

#include "internal/legacy/doublecomboslider.h"
#include "internal/legacy/doublespinbox.h"

#include <QFontMetrics>
#include <QLocale>
#include <QSignalSpy>
#include <QSlider>
#include <QtTest>

class tst_DoubleComboSlider : public QObject {
    Q_OBJECT

private:
    // Most tests start from a combo on 0..100 with increment 0.5 at 10, wide enough to drag.
    static void showAtTen(DoubleComboSlider& combo)
    {
        combo.resize(400, 30);
        combo.setRangeAndStep(0.0, 100.0, 0.5);
        combo.setValue(10.0);
        combo.show();
    }

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void shouldMapSliderPositionsLinearlyWithoutIncrement_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<double>("value");
        QTest::newRow("first position") << 0 << 1.0;
        QTest::newRow("middle") << 5000 << 501.0;
        QTest::newRow("a quarter") << 2500 << 251.0;
        QTest::newRow("last position") << 10000 << 1001.0;
    }
    void shouldMapSliderPositionsLinearlyWithoutIncrement()
    {
        QFETCH(int, position);
        QFETCH(double, value);
        DoubleComboSlider combo;
        combo.setRangeAndStep(1.0, 1001.0, 0.0);

        QCOMPARE(combo.slider()->minimum(), 0);
        QCOMPARE(combo.slider()->maximum(), DoubleComboSlider::SliderResolution);
        QCOMPARE(combo.sliderPositionToValue(position), value);
        QCOMPARE(combo.valueToSliderPosition(value), position);
    }

    void shouldGiveEveryIncrementItsOwnSliderPosition()
    {
        DoubleComboSlider combo;

        combo.setRangeAndStep(0.0, 100.0, 0.5);

        QCOMPARE(combo.slider()->minimum(), 0);
        QCOMPARE(combo.slider()->maximum(), 200);
        QCOMPARE(combo.slider()->singleStep(), 1);
        QCOMPARE(combo.sliderPositionToValue(21), 10.5);
        QCOMPARE(combo.valueToSliderPosition(10.5), 21);
    }

    void shouldFallBackToTheFixedResolutionForAVeryFineGrid()
    {
        DoubleComboSlider combo;

        combo.setRangeAndStep(0.0, 1e7, 1e-3);

        QCOMPARE(combo.slider()->maximum(), DoubleComboSlider::SliderResolution);
        // The value still lands on the grid.
        const double value = combo.sliderPositionToValue(1);
        QCOMPARE(combo.trimValue(value), value);
        QCOMPARE(value, 1000.0);
    }

    void shouldEmitTheValueWhileTheUserDragsTheSlider()
    {
        // Given a combo on 0..100 with increment 0.5 at 10
        DoubleComboSlider combo;
        showAtTen(combo);
        QVERIFY(QTest::qWaitForWindowExposed(&combo));
        QSlider* slider = combo.slider();
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        // When the handle is dragged to the right
        QVERIFY(dragHandle(slider, 30, 2));

        // Then every new value was announced as it came, and both parts show the last one
        QCOMPARE(changed.count(), 2);
        QVERIFY(combo.value() > 10.0);
        QCOMPARE(changed.last().at(0).toDouble(), combo.value());
        QCOMPARE(combo.value(), combo.sliderPositionToValue(slider->value()));
        QCOMPARE(combo.spinBox()->value(), combo.value());
    }

    void shouldCommitATypedValueAndMoveTheSlider()
    {
        DoubleComboSlider combo;
        showAtTen(combo);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        typeAndEnter(combo.spinBox(), QStringLiteral("42"));

        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), 42.0);
        QCOMPARE(combo.value(), 42.0);
        QCOMPARE(combo.slider()->value(), 84);
    }

    void shouldStepByTheIncrementWithArrowKeys_data()
    {
        QTest::addColumn<bool>("onSlider");
        QTest::addColumn<int>("key");
        QTest::addColumn<double>("expected");
        QTest::newRow("slider, right") << true << int(Qt::Key_Right) << 10.5;
        QTest::newRow("slider, left") << true << int(Qt::Key_Left) << 9.5;
        QTest::newRow("spin box, up") << false << int(Qt::Key_Up) << 10.5;
        QTest::newRow("spin box, down") << false << int(Qt::Key_Down) << 9.5;
    }
    void shouldStepByTheIncrementWithArrowKeys()
    {
        QFETCH(bool, onSlider);
        QFETCH(int, key);
        QFETCH(double, expected);
        DoubleComboSlider combo;
        showAtTen(combo);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);
        QWidget* target = onSlider ? static_cast<QWidget*>(combo.slider()) : combo.spinBox();

        QTest::keyClick(target, Qt::Key(key));

        QCOMPARE(combo.value(), expected);
        QCOMPARE(combo.spinBox()->value(), expected);
        QCOMPARE(combo.slider()->value(), combo.valueToSliderPosition(expected));
        QCOMPARE(changed.count(), 1);
    }

    void shouldPageByThePageStepOnTheSlider()
    {
        DoubleComboSlider combo;
        showAtTen(combo);
        combo.setPageStep(5.0);

        QTest::keyClick(combo.slider(), Qt::Key_PageUp);

        QCOMPARE(combo.slider()->pageStep(), 10);
        QCOMPARE(combo.value(), 15.0);
    }

    void shouldNotEmitWhileTheProgramSetsValueRangeOrSteps()
    {
        DoubleComboSlider combo;
        combo.setRangeAndStep(0.0, 100.0, 0.5);
        combo.setValue(50.0);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);
        QSignalSpy ranges(&combo, &DoubleComboSlider::rangeChanged);

        combo.setValue(60.0);
        combo.setRange(0.0, 40.0); // clamps the value
        combo.setMinimum(10.0);
        combo.setMaximum(30.0);
        combo.setRangeAndStep(0.0, 1000.0, 0.0);
        combo.setSingleStep(2.0);
        combo.setPageStep(100.0);

        QCOMPARE(changed.count(), 0);
        QCOMPARE(ranges.count(), 4);
        QCOMPARE(ranges.at(1), (QList<QVariant>{10.0, 40.0}));
        QCOMPARE(ranges.last(), (QList<QVariant>{0.0, 1000.0}));
        QCOMPARE(combo.value(), 30.0);
    }

    void shouldShowAProgrammaticValueAsGivenEvenOffTheGrid()
    {
        DoubleComboSlider combo;
        combo.setRangeAndStep(0.0, 100.0, 0.5);

        combo.setValue(12.3);

        QCOMPARE(combo.value(), 12.3);
        QCOMPARE(combo.spinBox()->value(), 12.3);
        QCOMPARE(combo.slider()->value(), 25);
    }

    void shouldClampAProgrammaticValueToTheRange()
    {
        DoubleComboSlider combo;
        combo.setRangeAndStep(0.0, 100.0, 0.5);

        combo.setValue(500.0);

        QCOMPARE(combo.value(), 100.0);
        QCOMPARE(combo.slider()->value(), 200);
    }

    void shouldShowTheRangeAsToolTip_data()
    {
        QTest::addColumn<double>("increment");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("without increment") << 0.0 << "Range: 1..1000";
        QTest::newRow("with increment") << 0.5 << "Range: 1..1000 (Increment: 0.5)";
    }
    void shouldShowTheRangeAsToolTip()
    {
        QFETCH(double, increment);
        QFETCH(QString, toolTip);
        DoubleComboSlider combo;

        combo.setRangeAndStep(1.0, 1000.0, increment);

        QCOMPARE(combo.toolTip(), toolTip);
    }

    void shouldWriteTheToolTipInTheWidgetsLocale()
    {
        DoubleComboSlider combo;
        combo.setRangeAndStep(0.5, 2.5, 0.25);

        combo.setLocale(QLocale(QLocale::German, QLocale::Germany));

        QCOMPARE(combo.toolTip(), QStringLiteral("Range: 0,5..2,5 (Increment: 0,25)"));
        QCOMPARE(combo.spinBox()->toolTip(), combo.toolTip());
    }

    void shouldLetTheViewScrollWhenTheWheelTurnsOverAnUnfocusedSlider()
    {
        DoubleComboSlider combo;
        showAtTen(combo);
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        QVERIFY(!turnWheel(combo.slider(), 120));

        QCOMPARE(combo.value(), 10.0);
        QCOMPARE(changed.count(), 0);
    }

    void shouldStepOneIncrementPerWheelNotchOnAFocusedSlider()
    {
        DoubleComboSlider combo;
        showAtTen(combo);
        QVERIFY(giveFocus(combo.slider()));
        QSignalSpy changed(&combo, &DoubleComboSlider::valueChanged);

        QVERIFY(turnWheel(combo.slider(), 120));
        QCOMPARE(combo.value(), 10.5);
        QVERIFY(turnWheel(combo.slider(), -360));

        QCOMPARE(combo.value(), 9.0);
        QCOMPARE(changed.count(), 4);
    }

    void shouldKeepTheHandleUnderTheMouseWhileTheProgramSetsAValue()
    {
        DoubleComboSlider combo;
        showAtTen(combo);
        QVERIFY(QTest::qWaitForWindowExposed(&combo));
        QSlider* slider = combo.slider();
        const QPoint start = sliderHandleRect(slider).center();
        sendMouse(slider, QEvent::MouseButtonPress, start, Qt::LeftButton);
        const int held = slider->value();

        // When the device answers while the handle is held
        combo.setValue(70.0);

        // Then the handle stays, the spin box shows the answer, and the handle follows on release
        QCOMPARE(slider->value(), held);
        QCOMPARE(combo.spinBox()->value(), 70.0);
        sendMouse(slider, QEvent::MouseButtonRelease, start, Qt::NoButton);
        QCOMPARE(slider->value(), 140);
    }

    void shouldTrimValuesToRangeAndGrid_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("trimmed");
        QTest::newRow("on the grid") << 10.5 << 10.5;
        QTest::newRow("off the grid") << 10.7 << 10.5;
        QTest::newRow("below") << -1.0 << 0.0;
        QTest::newRow("above") << 101.0 << 100.0;
    }
    void shouldTrimValuesToRangeAndGrid()
    {
        QFETCH(double, value);
        QFETCH(double, trimmed);
        DoubleComboSlider combo;
        combo.setRangeAndStep(0.0, 100.0, 0.5);

        QCOMPARE(combo.trimValue(value), trimmed);
    }

    void shouldGiveTheSpinBoxRoomForTwelveDigits()
    {
        DoubleComboSlider combo;

        const int digits =
            QFontMetrics(combo.spinBox()->font()).horizontalAdvance(QStringLiteral("999999999999"));

        QVERIFY(combo.spinBox()->minimumWidth() > digits);
    }

    void shouldKeepAnUnboundedRangeUsableWithoutNumbersGoingWrong()
    {
        DoubleComboSlider combo;
        const double big = std::numeric_limits<double>::max();

        combo.setRangeAndStep(-big, big, 0.0);
        combo.setValue(12.5);

        QCOMPARE(combo.value(), 12.5);
        QCOMPARE(combo.slider()->minimum(), combo.slider()->maximum());
        QVERIFY(std::isfinite(combo.sliderPositionToValue(0)));
    }
};

QTEST_MAIN(tst_DoubleComboSlider)
#include "tst_doublecomboslider.moc"
