#include "editortestsupport.h"

#include "internal/legacy/comboslider.h"
#include "internal/legacy/vantoqtspinbox.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QSlider>
#include <QStyledItemDelegate>
#include <QtTest>

namespace {

// A view's own editor handling around a ComboSlider: Escape reverts and closes, Enter commits
// and closes, unless the editor keeps the keys to itself.
class ComboSliderDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    mutable ComboSlider* editor = nullptr;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex&) const override
    {
        editor = new ComboSlider(parent);
        editor->setRange(0, 1000);
        editor->setValue(500);
        return editor;
    }
    void setEditorData(QWidget*, const QModelIndex&) const override {}
    void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}
};

} // namespace

class tst_ComboSlider : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldLayOutASliderAndASpinBoxSideBySide()
    {
        ComboSlider combo;
        auto* layout = qobject_cast<QHBoxLayout*>(combo.layout());
        QVERIFY(layout);
        QCOMPARE(layout->spacing(), 4);
        QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(layout->count(), 2);
        QCOMPARE(layout->itemAt(0)->widget(), combo.slider());
        QCOMPARE(layout->itemAt(1)->widget(), combo.spinBox());
        QCOMPARE(combo.slider()->orientation(), Qt::Horizontal);
        QCOMPARE(combo.spinBox()->parentWidget(), &combo);
    }

    void shouldMakeTheSpinBoxWideEnoughForTwelveDigits()
    {
        ComboSlider combo;
        const QFontMetrics metrics(combo.spinBox()->font());
        QVERIFY(combo.spinBox()->minimumWidth() >
                metrics.horizontalAdvance(QStringLiteral("999999999999")));
    }

    void shouldStartInAgreementAndWithARangeToolTip()
    {
        ComboSlider combo;
        QCOMPARE(combo.spinBox()->minimum(), combo.slider()->minimum());
        QCOMPARE(combo.spinBox()->maximum(), combo.slider()->maximum());
        QCOMPARE(combo.spinBox()->value(), combo.slider()->value());
        QCOMPARE(combo.toolTip(), QStringLiteral("Range: %1..%2")
                                      .arg(combo.slider()->minimum())
                                      .arg(combo.slider()->maximum()));
    }

    void shouldApplyRangeAndStepToSliderAndSpinBoxSilently()
    {
        ComboSlider combo;
        combo.setValue(50);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);
        QSignalSpy ranges(&combo, &ComboSlider::rangeChanged);

        combo.setRangeAndStep(3, 103, 5);

        QCOMPARE(combo.slider()->minimum(), 3);
        QCOMPARE(combo.slider()->maximum(), 103);
        QCOMPARE(combo.slider()->singleStep(), 5);
        QCOMPARE(combo.spinBox()->minimum(), 3);
        QCOMPARE(combo.spinBox()->maximum(), 103);
        QCOMPARE(combo.spinBox()->singleStep(), 5);
        QCOMPARE(ranges.count(), 1);
        QCOMPARE(ranges.at(0), (QList<QVariant>{3, 103}));
        QCOMPARE(values.count(), 0);
        QCOMPARE(combo.toolTip(), QStringLiteral("Range: 3..103 (Increment: 5)"));
    }

    void shouldAnnounceEveryRangeChange_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("minimum") << "setMinimum" << -20 << 99 << "Range: -20..99";
        QTest::newRow("maximum") << "setMaximum" << 0 << 5000 << "Range: 0..5000";
        QTest::newRow("range") << "setRange" << -7 << 7 << "Range: -7..7";
    }
    void shouldAnnounceEveryRangeChange()
    {
        QFETCH(QString, call);
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(QString, toolTip);

        ComboSlider combo;
        combo.setRange(0, 99);
        QSignalSpy ranges(&combo, &ComboSlider::rangeChanged);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        if (call == QLatin1String("setMinimum")) {
            combo.setMinimum(minimum);
        } else if (call == QLatin1String("setMaximum")) {
            combo.setMaximum(maximum);
        } else {
            combo.setRange(minimum, maximum);
        }

        QCOMPARE(ranges.count(), 1);
        QCOMPARE(ranges.at(0), (QList<QVariant>{minimum, maximum}));
        QCOMPARE(combo.slider()->minimum(), minimum);
        QCOMPARE(combo.slider()->maximum(), maximum);
        QCOMPARE(combo.spinBox()->minimum(), minimum);
        QCOMPARE(combo.spinBox()->maximum(), maximum);
        QCOMPARE(combo.toolTip(), toolTip);
        QCOMPARE(values.count(), 0);
    }

    void shouldNotEmitWhenANewRangeClampsTheValue()
    {
        ComboSlider combo;
        combo.setRange(0, 100);
        combo.setValue(80);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        combo.setRange(0, 50);

        QCOMPARE(combo.value(), 50);
        QCOMPARE(combo.spinBox()->value(), 50);
        QCOMPARE(values.count(), 0);
    }

    void shouldShowTheIncrementInTheToolTipUnlessItIsOne()
    {
        ComboSlider combo;
        combo.setRange(-5, 5);
        combo.setSingleStep(2);
        QCOMPARE(combo.toolTip(), QStringLiteral("Range: -5..5 (Increment: 2)"));
        QCOMPARE(combo.slider()->singleStep(), 2);
        QCOMPARE(combo.spinBox()->singleStep(), 2);
        combo.setSingleStep(1);
        QCOMPARE(combo.toolTip(), QStringLiteral("Range: -5..5"));
    }

    void shouldTrimValuesOntoTheIncrementGridFromTheMinimum_data()
    {
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("expected");
        QTest::newRow("between grid points") << 3 << 103 << 5 << 14 << 13;
        QTest::newRow("on the grid") << 3 << 103 << 5 << 13 << 13;
        QTest::newRow("just below the next point") << 3 << 103 << 5 << 17 << 13;
        QTest::newRow("the minimum") << 3 << 103 << 5 << 3 << 3;
        QTest::newRow("below the minimum") << 3 << 103 << 5 << -50 << 3;
        QTest::newRow("above the maximum") << 3 << 103 << 5 << 500 << 103;
        QTest::newRow("maximum off the grid") << 3 << 100 << 5 << 100 << 98;
        QTest::newRow("negative minimum") << -10 << 10 << 4 << 1 << -2;
        QTest::newRow("step one") << 0 << 100 << 1 << 37 << 37;
        QTest::newRow("step zero only clamps") << 0 << 100 << 0 << 37 << 37;
        QTest::newRow("step zero clamps") << 0 << 100 << 0 << 137 << 100;
        QTest::newRow("full int range")
            << std::numeric_limits<int>::min() << std::numeric_limits<int>::max() << 10
            << std::numeric_limits<int>::max() << std::numeric_limits<int>::max() - 5;
    }
    void shouldTrimValuesOntoTheIncrementGridFromTheMinimum()
    {
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, step);
        QFETCH(int, value);
        QFETCH(int, expected);

        ComboSlider combo;
        combo.setRangeAndStep(minimum, maximum, step);
        QCOMPARE(combo.trimValue(value), expected);
    }

    void shouldSetTheValueSilentlyAndOnTheGrid()
    {
        ComboSlider combo;
        combo.setRangeAndStep(3, 103, 5);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        combo.setValue(52);

        QCOMPARE(combo.value(), 48);
        QCOMPARE(combo.slider()->value(), 48);
        QCOMPARE(combo.spinBox()->value(), 48);
        QCOMPARE(values.count(), 0);
    }

    void shouldSetThePageStepOfSliderAndSpinBox()
    {
        ComboSlider combo;
        combo.setPageStep(20);
        QCOMPARE(combo.slider()->pageStep(), 20);
        QCOMPARE(combo.spinBox()->pageStep(), 20);
        QCOMPARE(combo.pageStep(), 20);
    }

    void shouldFixTheEditBoxWidth()
    {
        ComboSlider combo;
        combo.setEditBoxWidth(150);
        QCOMPARE(combo.spinBox()->minimumWidth(), 150);
        QCOMPARE(combo.spinBox()->maximumWidth(), 150);
    }

    void shouldEmitOnceForEverySliderKeyStep()
    {
        ComboSlider combo;
        combo.setRangeAndStep(0, 100, 10);
        combo.setValue(50);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        QTest::keyClick(combo.slider(), Qt::Key_Right);
        QTest::keyClick(combo.slider(), Qt::Key_Right);
        QTest::keyClick(combo.slider(), Qt::Key_Left);

        QCOMPARE(intsOf(values), (QList<int>{60, 70, 60}));
        QCOMPARE(combo.spinBox()->value(), 60);
    }

    void shouldEmitOnceForEveryGridValueReachedWhileDragging()
    {
        // Given a slider of step 10 wide enough that a pixel is less than a step
        ComboSlider combo;
        combo.resize(600, 40);
        combo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&combo));
        combo.setRangeAndStep(0, 100, 10);
        combo.setValue(0);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        // When the handle is dragged across the whole groove in small moves
        QVERIFY(dragHandle(combo.slider(), 7, 100));

        // Then every announced value is new, on the grid and in order, and the last one stays
        const QList<int> seen = intsOf(values);
        QVERIFY2(seen.size() >= 5, qPrintable(QString::number(seen.size())));
        for (int i = 0; i < seen.size(); ++i) {
            QCOMPARE(seen.at(i) % 10, 0);
            if (i > 0) {
                QVERIFY(seen.at(i) > seen.at(i - 1));
            }
        }
        QCOMPARE(seen.last(), 100);
        QCOMPARE(combo.value(), 100);
        QCOMPARE(combo.spinBox()->value(), 100);
    }

    void shouldSnapTheTypedValueOntoTheGridWhenEditingEnds()
    {
        ComboSlider combo;
        combo.setRangeAndStep(3, 103, 5);
        combo.setValue(53);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        selectAllAndType(combo.spinBox(), "14");
        QCOMPARE(values.count(), 0); // typing alone commits nothing
        QTest::keyClick(combo.spinBox(), Qt::Key_Enter);

        QCOMPARE(combo.spinBox()->value(), 13);
        QCOMPARE(combo.spinBox()->text(), QStringLiteral("13"));
        QCOMPARE(combo.value(), 13);
        QCOMPARE(intsOf(values), QList<int>{13});
    }

    void shouldNotEmitWhenTheTypedValueLandsOnTheCurrentOne()
    {
        ComboSlider combo;
        combo.setRangeAndStep(3, 103, 5);
        combo.setValue(13);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        selectAllAndType(combo.spinBox(), "16");
        QTest::keyClick(combo.spinBox(), Qt::Key_Enter);

        QCOMPARE(combo.spinBox()->value(), 13);
        QCOMPARE(values.count(), 0);
    }

    void shouldEmitOnceForEverySpinBoxStep()
    {
        ComboSlider combo;
        combo.setRangeAndStep(3, 103, 5);
        combo.setValue(13);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        QTest::keyClick(combo.spinBox(), Qt::Key_Up);
        QTest::keyClick(combo.spinBox(), Qt::Key_Up);
        QTest::keyClick(combo.spinBox(), Qt::Key_Down);

        QCOMPARE(intsOf(values), (QList<int>{18, 23, 18}));
        QCOMPARE(combo.slider()->value(), 18);
    }

    void shouldEmitOnceForEveryWheelStep()
    {
        ComboSlider combo;
        combo.resize(400, 40);
        combo.setRangeAndStep(0, 100, 10);
        combo.setValue(50);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);
        combo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&combo));

        combo.spinBox()->setFocus();
        turnWheel(combo.spinBox(), 120);
        combo.slider()->setFocus();
        turnWheel(combo.slider(), 120);

        QCOMPARE(values.count(), 2);
        QCOMPARE(values.at(0).at(0).toInt(), 60);
        QCOMPARE(values.at(1).at(0).toInt() % 10, 0);
        QVERIFY(values.at(1).at(0).toInt() > 60);
        QCOMPARE(combo.spinBox()->value(), combo.value());
    }

    void shouldPageTheSpinBoxByThePageStep()
    {
        ComboSlider combo;
        combo.setRangeAndStep(0, 1000, 10);
        combo.setPageStep(50);
        combo.setValue(500);
        QSignalSpy values(&combo, &ComboSlider::valueChanged);

        QTest::keyClick(combo.spinBox(), Qt::Key_PageUp);
        QTest::keyClick(combo.spinBox(), Qt::Key_PageDown);
        QTest::keyClick(combo.spinBox(), Qt::Key_PageDown);

        QCOMPARE(intsOf(values), (QList<int>{550, 500, 450}));
    }

    void shouldKeepTheEditorOpenOnEscapeAndEnterInAView()
    {
        // Given a view editing a cell with a ComboSlider
        OneCellView<ComboSliderDelegate> table;
        QVERIFY(table.edit());
        QVERIFY(table.delegate->editor);
        QPointer<ComboSlider> editor = table.delegate->editor;
        QSignalSpy values(editor.data(), &ComboSlider::valueChanged);
        QVERIFY(table.closed.isValid());

        // When the user types, then presses Escape
        selectAllAndType(editor->spinBox(), "77");
        QTest::keyClick(editor->spinBox(), Qt::Key_Escape);
        // The view closes editors through queued calls: let them run.
        QCoreApplication::processEvents();

        // Then the typed text is undone and the editor stays open
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("500"));
        QCOMPARE(table.closed.count(), 0);
        QCOMPARE(table.editor(), editor.data());

        // When the user types and presses Enter
        selectAllAndType(editor->spinBox(), "600");
        QTest::keyClick(editor->spinBox(), Qt::Key_Enter);
        // The view closes editors through queued calls: let them run.
        QCoreApplication::processEvents();

        // Then the value is announced once and the editor is still open
        QCOMPARE(intsOf(values), QList<int>{600});
        QCOMPARE(table.closed.count(), 0);
        QVERIFY(editor);
        QCOMPARE(table.editor(), editor.data());
    }
};

QTEST_MAIN(tst_ComboSlider)
#include "tst_comboslider.moc"
