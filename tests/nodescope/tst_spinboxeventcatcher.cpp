#include "internal/legacy/spinboxeventcatcher.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

namespace {

// A float spin box that counts the focus events it is handed.
class CountingSpinBox : public QDoubleSpinBox {
public:
    using QDoubleSpinBox::QDoubleSpinBox;
    int focusIns = 0;
    int focusOuts = 0;

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        ++focusIns;
        QDoubleSpinBox::focusInEvent(event);
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        ++focusOuts;
        QDoubleSpinBox::focusOutEvent(event);
    }
};

} // namespace

class tst_SpinBoxEventCatcher : public QObject {
    Q_OBJECT

private:
    QWidget* m_window = nullptr;
    QLineEdit* m_other = nullptr;
    CountingSpinBox* m_spinBox = nullptr;
    SpinBoxEventCatcher* m_catcher = nullptr;

private Q_SLOTS:
    void init()
    {
        m_window = new QWidget;
        m_other = new QLineEdit(m_window);
        m_spinBox = new CountingSpinBox(m_window);
        m_spinBox->setRange(0.0, 1000.0);
        m_spinBox->setDecimals(2);
        m_spinBox->setValue(12.5);
        auto* layout = new QVBoxLayout(m_window);
        layout->addWidget(m_other);
        layout->addWidget(m_spinBox);
        m_catcher = new SpinBoxEventCatcher(m_spinBox);
        m_spinBox->installEventFilter(m_catcher);
        m_window->show();
        QApplication::setActiveWindow(m_window);
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        m_other->setFocus();
        QTRY_VERIFY(m_other->hasFocus());
    }

    void cleanup()
    {
        delete m_window;
        m_window = nullptr;
    }

    void shouldReportFocusEnteringAndLeavingTheSpinBox()
    {
        // Given a float spin box with the catcher installed
        QSignalSpy focus(m_catcher, &SpinBoxEventCatcher::focusEvent);
        m_spinBox->focusIns = 0;
        m_spinBox->focusOuts = 0;

        // When the focus enters it and leaves it again
        m_spinBox->setFocus(Qt::MouseFocusReason);
        QTRY_VERIFY(m_spinBox->hasFocus());
        m_other->setFocus(Qt::MouseFocusReason);
        QTRY_VERIFY(m_other->hasFocus());

        // Then focusEvent(true) and focusEvent(false) are emitted, in that order
        QCOMPARE(focus.count(), 2);
        QCOMPARE(focus.at(0).at(0).toBool(), true);
        QCOMPARE(focus.at(1).at(0).toBool(), false);
        // And the spin box still received both events
        QCOMPARE(m_spinBox->focusIns, 1);
        QCOMPARE(m_spinBox->focusOuts, 1);
    }

    void shouldReportFocusFromTheKeyboardToo()
    {
        QSignalSpy focus(m_catcher, &SpinBoxEventCatcher::focusEvent);

        QTest::keyClick(m_other, Qt::Key_Tab);
        QTRY_VERIFY(m_spinBox->hasFocus());
        QTest::keyClick(m_spinBox, Qt::Key_Backtab, Qt::ShiftModifier);
        QTRY_VERIFY(m_other->hasFocus());

        QCOMPARE(focus.count(), 2);
        QCOMPARE(focus.at(0).at(0).toBool(), true);
        QCOMPARE(focus.at(1).at(0).toBool(), false);
    }

    void shouldLetTheSpinBoxFinishItsEditingWhenTheFocusLeaves()
    {
        // Given a value typed into the focused spin box
        QSignalSpy finished(m_spinBox, &QAbstractSpinBox::editingFinished);
        QSignalSpy focus(m_catcher, &SpinBoxEventCatcher::focusEvent);
        m_spinBox->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(m_spinBox->hasFocus());
        QTest::keyClick(m_spinBox, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(m_spinBox, QStringLiteral("42.25"));
        QCOMPARE(finished.count(), 0);

        // When the focus leaves it
        m_other->setFocus(Qt::MouseFocusReason);
        QTRY_VERIFY(m_other->hasFocus());

        // Then the spin box took the value and finished editing, as without the catcher
        QCOMPARE(focus.count(), 2);
        QCOMPARE(finished.count(), 1);
        QCOMPARE(m_spinBox->value(), 42.25);
    }

    void shouldLetEveryOtherEventThroughWithoutReportingIt()
    {
        QSignalSpy focus(m_catcher, &SpinBoxEventCatcher::focusEvent);
        QSignalSpy changed(m_spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged));

        QTest::keyClick(m_spinBox, Qt::Key_Up);
        QTest::keyClick(m_spinBox, Qt::Key_Up);
        QResizeEvent resize(QSize(120, 30), m_spinBox->size());
        QApplication::sendEvent(m_spinBox, &resize);

        QCOMPARE(m_spinBox->value(), 14.5);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(focus.count(), 0);
    }

    void shouldPassFocusEventsOnFromEventFilter_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("focusIn");
        QTest::newRow("FocusIn") << int(QEvent::FocusIn) << true;
        QTest::newRow("FocusOut") << int(QEvent::FocusOut) << false;
    }

    void shouldPassFocusEventsOnFromEventFilter()
    {
        QFETCH(int, type);
        QFETCH(bool, focusIn);
        SpinBoxEventCatcher catcher;
        QSignalSpy focus(&catcher, &SpinBoxEventCatcher::focusEvent);
        QFocusEvent event(QEvent::Type(type), Qt::OtherFocusReason);

        const bool eaten = catcher.eventFilter(m_spinBox, &event);

        QVERIFY(!eaten);
        QCOMPARE(focus.count(), 1);
        QCOMPARE(focus.at(0).at(0).toBool(), focusIn);
    }
};

QTEST_MAIN(tst_SpinBoxEventCatcher)
#include "tst_spinboxeventcatcher.moc"
