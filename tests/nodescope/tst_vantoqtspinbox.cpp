#include "internal/legacy/vantoqtspinbox.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

namespace {

// Counts the key presses that make it past the spin box to its parent.
class KeyWatcher : public QObject {
public:
    QList<int> keys;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            keys << static_cast<QKeyEvent*>(event)->key();
        }
        return QObject::eventFilter(watched, event);
    }
};

void wheel(QWidget* widget, int angle)
{
    const QPointF pos(widget->width() / 2.0, widget->height() / 2.0);
    QWheelEvent event(pos, widget->mapToGlobal(pos.toPoint()), QPoint(), QPoint(0, angle),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

} // namespace

class tst_VantoQtSpinBox : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldStartWithAPageStepOfTen()
    {
        VantoQtSpinBox box;
        QCOMPARE(box.pageStep(), 10);
        box.setPageStep(25);
        QCOMPARE(box.pageStep(), 25);
    }

    void shouldStepByItsOwnPageStepOnPageKeys_data()
    {
        QTest::addColumn<int>("singleStep");
        QTest::addColumn<int>("pageStep");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("expected");

        // Starting at 500 in 0..1000.
        QTest::newRow("default page up") << 1 << 10 << int(Qt::Key_PageUp) << 510;
        QTest::newRow("default page down") << 1 << 10 << int(Qt::Key_PageDown) << 490;
        QTest::newRow("own page up") << 1 << 25 << int(Qt::Key_PageUp) << 525;
        QTest::newRow("own page down") << 1 << 25 << int(Qt::Key_PageDown) << 475;
        // The page step is a distance in values, walked in whole single steps.
        QTest::newRow("increment 10, page 50") << 10 << 50 << int(Qt::Key_PageUp) << 550;
        QTest::newRow("increment 5, page 12") << 5 << 12 << int(Qt::Key_PageDown) << 490;
        QTest::newRow("page smaller than a step") << 10 << 3 << int(Qt::Key_PageUp) << 510;
        QTest::newRow("clipped at the maximum") << 1 << 800 << int(Qt::Key_PageUp) << 1000;
    }
    void shouldStepByItsOwnPageStepOnPageKeys()
    {
        QFETCH(int, singleStep);
        QFETCH(int, pageStep);
        QFETCH(int, key);
        QFETCH(int, expected);

        VantoQtSpinBox box;
        box.setRange(0, 1000);
        box.setSingleStep(singleStep);
        box.setPageStep(pageStep);
        box.setValue(500);
        QSignalSpy finished(&box, &VantoQtSpinBox::editingFinished);

        QTest::keyClick(&box, Qt::Key(key));

        QCOMPARE(box.value(), expected);
        QCOMPARE(finished.count(), 1);
    }

    void shouldFinishEditingOnEveryArrowStep()
    {
        VantoQtSpinBox box;
        box.setRange(0, 100);
        box.setValue(50);
        QSignalSpy finished(&box, &VantoQtSpinBox::editingFinished);

        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), 51);
        QCOMPARE(finished.count(), 1);

        QTest::keyClick(&box, Qt::Key_Down);
        QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.value(), 49);
        QCOMPARE(finished.count(), 3);
    }

    void shouldFinishEditingOnEveryWheelStep()
    {
        VantoQtSpinBox box;
        box.setRange(0, 100);
        box.setSingleStep(3);
        box.setValue(50);
        QSignalSpy finished(&box, &VantoQtSpinBox::editingFinished);

        wheel(&box, 120);
        QCOMPARE(box.value(), 53);
        QCOMPARE(finished.count(), 1);

        wheel(&box, -120);
        wheel(&box, -120);
        QCOMPARE(box.value(), 47);
        QCOMPARE(finished.count(), 3);
    }

    void shouldStepByOneArrowStepAfterAPageKeyThatHitTheBound()
    {
        // Given a spin box at its maximum, where Page Up cannot step
        VantoQtSpinBox box;
        box.setRange(0, 100);
        box.setPageStep(30);
        box.setValue(100);
        QTest::keyClick(&box, Qt::Key_PageUp);
        QCOMPARE(box.value(), 100);

        // When an arrow key follows
        QTest::keyClick(&box, Qt::Key_Down);

        // Then it moves by one step, not by a page
        QCOMPARE(box.value(), 99);
    }

    void shouldStepPlainlyWhenCalledDirectly()
    {
        VantoQtSpinBox box;
        box.setRange(0, 100);
        box.setPageStep(30);
        box.setValue(10);
        QSignalSpy finished(&box, &VantoQtSpinBox::editingFinished);

        box.stepBy(2);

        QCOMPARE(box.value(), 12);
        QCOMPARE(finished.count(), 1);
    }

    void shouldUndoTheTypedTextOnEscape()
    {
        // Given a spin box showing 500 in which the user typed another number
        VantoQtSpinBox box;
        box.setRange(0, 1000);
        box.setValue(500);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&box, "77");
        QCOMPARE(box.text(), QStringLiteral("77"));

        // When Escape is pressed
        QTest::keyClick(&box, Qt::Key_Escape);

        // Then the text and the value from before the typing are back
        QCOMPARE(box.text(), QStringLiteral("500"));
        QCOMPARE(box.value(), 500);
    }

    void shouldUndoEditsInSeveralPlacesOnEscape()
    {
        VantoQtSpinBox box;
        box.setRange(0, 100000);
        box.setValue(500);
        // Typing at the end, then at the start: two separate undo steps of the line edit.
        QTest::keyClick(&box, Qt::Key_End);
        QTest::keyClicks(&box, "1");
        QTest::keyClick(&box, Qt::Key_Home);
        QTest::keyClicks(&box, "2");
        QCOMPARE(box.text(), QStringLiteral("25001"));

        QTest::keyClick(&box, Qt::Key_Escape);

        QCOMPARE(box.text(), QStringLiteral("500"));
    }

    void shouldKeepEscapeAndEnterFromItsParent()
    {
        QWidget parent;
        auto* box = new VantoQtSpinBox(&parent);
        box->setRange(0, 100);
        box->setValue(5);
        KeyWatcher watcher;
        parent.installEventFilter(&watcher);

        QTest::keyClick(box, Qt::Key_Escape);
        QTest::keyClick(box, Qt::Key_Return);
        QTest::keyClick(box, Qt::Key_Enter);
        // A key the spin box does not use still reaches the parent, so the watcher works.
        QTest::keyClick(box, Qt::Key_F5);

        QCOMPARE(watcher.keys, QList<int>{Qt::Key_F5});
    }

    void shouldFinishEditingOnEnter()
    {
        VantoQtSpinBox box;
        box.setRange(0, 100);
        box.setValue(5);
        QSignalSpy finished(&box, &VantoQtSpinBox::editingFinished);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&box, "42");

        QTest::keyClick(&box, Qt::Key_Enter);

        QCOMPARE(finished.count(), 1);
        QCOMPARE(box.value(), 42);
    }
};

QTEST_MAIN(tst_VantoQtSpinBox)
#include "tst_vantoqtspinbox.moc"
