#include "editortestsupport.h"

#include "internal/legacy/vantoqtdoublespinbox.h"

#include <QApplication>
#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

class tst_VantoQtDoubleSpinBox : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QWidget> m_parent;
    // The keys that get past the spin box, as a view around an editor would see them.
    KeyWatcher* m_keys = nullptr;          // owned by m_parent
    VantoQtDoubleSpinBox* m_box = nullptr; // owned by m_parent

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    // Every test starts from a box at 10 on 0..100 with single step 0.5, inside a parent.
    void init()
    {
        m_parent = std::make_unique<QWidget>();
        m_keys = new KeyWatcher(m_parent.get());
        m_parent->installEventFilter(m_keys);
        m_box = new VantoQtDoubleSpinBox(m_parent.get());
        m_box->setRange(0.0, 100.0);
        m_box->setSingleStep(0.5);
        m_box->setValue(10.0);
        m_parent->show();
    }
    void cleanup() { m_parent.reset(); }

    void shouldStepBySingleStepAndCommitEveryArrowKey()
    {
        QSignalSpy changed(m_box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        QSignalSpy finished(m_box, &QAbstractSpinBox::editingFinished);

        QTest::keyClick(m_box, Qt::Key_Up);
        QCOMPARE(m_box->value(), 10.5);
        QTest::keyClick(m_box, Qt::Key_Up);
        QTest::keyClick(m_box, Qt::Key_Down);

        QCOMPARE(m_box->value(), 10.5);
        QCOMPARE(changed.count(), 3);
        QCOMPARE(finished.count(), 3);
    }

    void shouldStepByItsOwnPageStepOnPageKeys_data()
    {
        QTest::addColumn<double>("pageStep");
        QTest::addColumn<int>("key");
        QTest::addColumn<double>("expected");
        QTest::newRow("default: ten single steps up") << 0.0 << int(Qt::Key_PageUp) << 15.0;
        QTest::newRow("default: ten single steps down") << 0.0 << int(Qt::Key_PageDown) << 5.0;
        QTest::newRow("own page step up") << 2.5 << int(Qt::Key_PageUp) << 12.5;
        QTest::newRow("own page step down") << 2.5 << int(Qt::Key_PageDown) << 7.5;
    }
    void shouldStepByItsOwnPageStepOnPageKeys()
    {
        QFETCH(double, pageStep);
        QFETCH(int, key);
        QFETCH(double, expected);
        m_box->setPageStep(pageStep);
        QSignalSpy finished(m_box, &QAbstractSpinBox::editingFinished);

        QTest::keyClick(m_box, Qt::Key(key));

        QCOMPARE(m_box->value(), expected);
        QCOMPARE(finished.count(), 1);
    }

    void shouldNotTurnTheNextArrowIntoAPageStepAfterAPageKeyAtTheBound()
    {
        // Given a box at its maximum, where Page Up cannot step
        m_box->setValue(100.0);
        QTest::keyClick(m_box, Qt::Key_PageUp);
        QCOMPARE(m_box->value(), 100.0);

        // When Down follows
        QTest::keyClick(m_box, Qt::Key_Down);

        // Then it is a single step
        QCOMPARE(m_box->value(), 99.5);
    }

    void shouldCommitTypedTextOnlyOnEnter()
    {
        QSignalSpy changed(m_box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));

        typeOver(m_box, QStringLiteral("42"));
        QCOMPARE(changed.count(), 0);
        QVERIFY(m_box->isEditing());
        QCOMPARE(m_box->value(), 10.0);

        QTest::keyClick(m_box, Qt::Key_Enter);

        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), 42.0);
        QCOMPARE(m_box->value(), 42.0);
        QVERIFY(!m_box->isEditing());
    }

    void shouldTakeTheTypingBackOnEscape()
    {
        QSignalSpy changed(m_box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        QSignalSpy cancelled(m_box, &VantoQtDoubleSpinBox::editingCancelled);
        typeOver(m_box, QStringLiteral("42"));
        QCOMPARE(m_box->text(), QStringLiteral("42"));

        QTest::keyClick(m_box, Qt::Key_Escape);

        QCOMPARE(m_box->text(), QStringLiteral("10.00"));
        QCOMPARE(m_box->value(), 10.0);
        QCOMPARE(cancelled.count(), 1);
        QVERIFY(!m_box->isEditing());
        // Nothing is left to commit.
        QTest::keyClick(m_box, Qt::Key_Enter);
        QCOMPARE(changed.count(), 0);
    }

    void shouldKeepEnterAndEscapeFromTheView_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Escape") << int(Qt::Key_Escape);
    }
    void shouldKeepEnterAndEscapeFromTheView()
    {
        QFETCH(int, key);
        typeOver(m_box, QStringLiteral("42"));

        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(m_box, &press);
        QTest::keyClick(m_box, Qt::Key(key));

        QVERIFY(press.isAccepted());
        QCOMPARE(m_keys->keys, QList<int>());
    }

    void shouldLetOtherKeysItDoesNotUseReachTheView()
    {
        QTest::keyClick(m_box, Qt::Key_F5);

        QCOMPARE(m_keys->keys, QList<int>{Qt::Key_F5});
    }

    void shouldStartAStepFromUncommittedTyping()
    {
        QSignalSpy changed(m_box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        typeOver(m_box, QStringLiteral("42"));

        QTest::keyClick(m_box, Qt::Key_Up);

        QCOMPARE(m_box->value(), 42.5);
        QCOMPARE(changed.last().at(0).toDouble(), 42.5);
        QVERIFY(!m_box->isEditing());
    }

    void shouldIgnoreTheWheelWithoutKeyboardFocus()
    {
        QSignalSpy changed(m_box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        QVERIFY(!m_box->hasFocus());

        const bool taken = turnWheel(m_box, 120);

        QVERIFY(!taken);
        QCOMPARE(m_box->value(), 10.0);
        QCOMPARE(changed.count(), 0);
    }

    void shouldStepOnTheWheelWithKeyboardFocus()
    {
        QVERIFY(giveFocus(m_box));
        QSignalSpy changed(m_box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        QSignalSpy finished(m_box, &QAbstractSpinBox::editingFinished);

        QVERIFY(turnWheel(m_box, 120));
        QCOMPARE(m_box->value(), 10.5);
        QVERIFY(turnWheel(m_box, -240));

        QCOMPARE(m_box->value(), 9.5);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(finished.count(), 2);
    }

    void shouldNotTakeTheFocusFromTheWheel() { QCOMPARE(m_box->focusPolicy(), Qt::StrongFocus); }

    void shouldCommitTypedTextWhenTheFocusLeaves()
    {
        auto* other = new QLineEdit(m_parent.get());
        other->show();
        QVERIFY(giveFocus(m_box));
        QSignalSpy changed(m_box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        typeOver(m_box, QStringLiteral("33"));

        QVERIFY(giveFocus(other));

        QCOMPARE(changed.count(), 1);
        QCOMPARE(m_box->value(), 33.0);
        QVERIFY(!m_box->isEditing());
    }

    void shouldShowNoSelectionWhenShownWithoutFocus()
    {
        checkNoSelectionWhenShownWithoutFocus<VantoQtDoubleSpinBox>();
    }
};

QTEST_MAIN(tst_VantoQtDoubleSpinBox)
#include "tst_vantoqtdoublespinbox.moc"
