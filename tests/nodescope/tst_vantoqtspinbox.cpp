#include "editortestsupport.h"

#include "internal/legacy/vantoqtspinbox.h"

#include <QSignalSpy>
#include <QLineEdit>
#include <QtTest>

#include <memory>

class tst_VantoQtSpinBox : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QWidget> m_parent;
    VantoQtSpinBox* m_box = nullptr; // owned by m_parent

private Q_SLOTS:
    // Every test starts from a box at 50 on 0..100, inside a parent as in an editor.
    void init()
    {
        m_parent = std::make_unique<QWidget>();
        m_box = new VantoQtSpinBox(m_parent.get());
        m_box->setRange(0, 100);
        m_box->setValue(50);
    }
    void cleanup() { m_parent.reset(); }

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

        m_box->setRange(0, 1000);
        m_box->setSingleStep(singleStep);
        m_box->setPageStep(pageStep);
        m_box->setValue(500);
        QSignalSpy finished(m_box, &VantoQtSpinBox::editingFinished);

        QTest::keyClick(m_box, Qt::Key(key));

        QCOMPARE(m_box->value(), expected);
        QCOMPARE(finished.count(), 1);
    }

    void shouldFinishEditingOnEveryArrowStep()
    {
        QSignalSpy finished(m_box, &VantoQtSpinBox::editingFinished);

        QTest::keyClick(m_box, Qt::Key_Up);
        QCOMPARE(m_box->value(), 51);
        QCOMPARE(finished.count(), 1);

        QTest::keyClick(m_box, Qt::Key_Down);
        QTest::keyClick(m_box, Qt::Key_Down);
        QCOMPARE(m_box->value(), 49);
        QCOMPARE(finished.count(), 3);
    }

    void shouldFinishEditingOnEveryWheelStep()
    {
        m_box->setSingleStep(3);
        QSignalSpy finished(m_box, &VantoQtSpinBox::editingFinished);
        // The wheel turns only the box the user works in
        QVERIFY(!turnWheel(m_box, 120));
        QCOMPARE(m_box->value(), 50);
        QCOMPARE(finished.count(), 0);
        m_parent->show();
        m_parent->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_parent.get()));
        m_box->setFocus();
        QTRY_VERIFY(m_box->hasFocus());

        turnWheel(m_box, 120);
        QCOMPARE(m_box->value(), 53);
        QCOMPARE(finished.count(), 1);

        turnWheel(m_box, -120);
        turnWheel(m_box, -120);
        QCOMPARE(m_box->value(), 47);
        QCOMPARE(finished.count(), 3);
    }

    void shouldStepByOneArrowStepAfterAPageKeyThatHitTheBound()
    {
        // Given a spin box at its maximum, where Page Up cannot step
        m_box->setPageStep(30);
        m_box->setValue(100);
        QTest::keyClick(m_box, Qt::Key_PageUp);
        QCOMPARE(m_box->value(), 100);

        // When an arrow key follows
        QTest::keyClick(m_box, Qt::Key_Down);

        // Then it moves by one step, not by a page
        QCOMPARE(m_box->value(), 99);
    }

    void shouldStepPlainlyWhenCalledDirectly()
    {
        m_box->setPageStep(30);
        m_box->setValue(10);
        QSignalSpy finished(m_box, &VantoQtSpinBox::editingFinished);

        m_box->stepBy(2);

        QCOMPARE(m_box->value(), 12);
        QCOMPARE(finished.count(), 1);
    }

    void shouldUndoTheTypedTextOnEscape()
    {
        // Given a spin box showing 500 in which the user typed another number
        m_box->setRange(0, 1000);
        m_box->setValue(500);
        selectAllAndType(m_box, "77");
        QCOMPARE(m_box->text(), QStringLiteral("77"));

        // When Escape is pressed
        QTest::keyClick(m_box, Qt::Key_Escape);

        // Then the text and the value from before the typing are back
        QCOMPARE(m_box->text(), QStringLiteral("500"));
        QCOMPARE(m_box->value(), 500);
    }

    void shouldUndoEditsInSeveralPlacesOnEscape()
    {
        m_box->setRange(0, 100000);
        m_box->setValue(500);
        // Typing at the end, then at the start: two separate undo steps of the line edit.
        QTest::keyClick(m_box, Qt::Key_End);
        QTest::keyClicks(m_box, "1");
        QTest::keyClick(m_box, Qt::Key_Home);
        QTest::keyClicks(m_box, "2");
        QCOMPARE(m_box->text(), QStringLiteral("25001"));

        QTest::keyClick(m_box, Qt::Key_Escape);

        QCOMPARE(m_box->text(), QStringLiteral("500"));
    }

    void shouldKeepEscapeAndEnterFromItsParent()
    {
        m_box->setValue(5);

        // A key the spin box does not use still reaches the parent, so the watcher works.
        QCOMPARE(keysReaching(m_parent.get(), m_box,
                              {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F5}),
                 QList<int>{Qt::Key_F5});
    }

    void shouldFinishEditingOnEnter()
    {
        m_box->setValue(5);
        QSignalSpy finished(m_box, &VantoQtSpinBox::editingFinished);
        selectAllAndType(m_box, "42");

        QTest::keyClick(m_box, Qt::Key_Enter);

        QCOMPARE(finished.count(), 1);
        QCOMPARE(m_box->value(), 42);
    }

    void shouldTakeANumberBeyondTheRangeAsTheNearestBoundAndTellWhatWasTyped()
    {
        QSignalSpy committed(m_box, &VantoQtSpinBox::typingCommitted);
        selectAllAndType(m_box, "250");
        QCOMPARE(m_box->text(), QStringLiteral("250"));

        QTest::keyClick(m_box, Qt::Key_Enter);

        QCOMPARE(m_box->value(), 100);
        QCOMPARE(committed.count(), 1);
        QCOMPARE(committed.at(0).at(0).toString(), QStringLiteral("250"));
        // Stepping is no typing
        QTest::keyClick(m_box, Qt::Key_Down);
        QCOMPARE(committed.count(), 1);
    }

    void shouldRefuseLettersAndShowTheValueAgain()
    {
        QSignalSpy refused(m_box, &VantoQtSpinBox::typingRefused);
        selectAllAndType(m_box, "4z");

        QTRY_COMPARE(refused.count(), 1);
        QCOMPARE(refused.at(0).at(0).toString(), QStringLiteral("4z"));
        QCOMPARE(m_box->text(), QStringLiteral("50"));
        QCOMPARE(m_box->value(), 50);
    }

    void shouldShowNoSelectionWhenShownWithoutFocus()
    {
        checkNoSelectionWhenShownWithoutFocus<VantoQtSpinBox>();
    }
};

QTEST_MAIN(tst_VantoQtSpinBox)
#include "tst_vantoqtspinbox.moc"
