#include "internal/view/usecaseedit.h"

#include <QAction>
#include <QApplication>
#include <QColor>
#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QToolButton>
#include <QtTest>

using Plugin::Nodescope::Internal::View::CUseCaseEdit;

namespace {

const QString kLongName = QStringLiteral(
    "Line scan with external trigger, encoder control and sequencer for high-speed inspection");

// The width the text may take: the field minus the room of the cross.
int textRoom(const CUseCaseEdit& edit)
{
    const qreal scale = edit.screen()->logicalDotsPerInch() / 96.0;
    return edit.width() - static_cast<int>(40 * scale);
}

} // namespace

class tst_UseCaseEdit : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldBeReadOnlyWithEightPointFont();
    void shouldKeepEightPointFontWhenTheFontChanges();
    void shouldUseTheExactStyleSheet();
    void shouldShowTheCloseIconAsTrailingAction();
    void shouldEmitOnCrossActionTriggeredFromTheCross();
    void shouldElideLongTextAtTheRight();
    void shouldShowShortTextUnchanged();
    void shouldReElideWhenResized();
    void shouldIgnoreTheUsersTyping();
    void shouldPaintTheUseCaseColour();
};

void tst_UseCaseEdit::shouldBeReadOnlyWithEightPointFont()
{
    CUseCaseEdit edit;
    QVERIFY(edit.isReadOnly());
    QCOMPARE(edit.font().pointSize(), 8);
}

void tst_UseCaseEdit::shouldKeepEightPointFontWhenTheFontChanges()
{
    CUseCaseEdit edit;
    QFont bigger = edit.font();
    bigger.setPointSize(14);
    bigger.setItalic(true);

    edit.setFont(bigger);

    QCOMPARE(edit.font().pointSize(), 8);
    // The rest of the font is the caller's.
    QVERIFY(edit.font().italic());
}

void tst_UseCaseEdit::shouldUseTheExactStyleSheet()
{
    CUseCaseEdit edit;
    QCOMPARE(edit.styleSheet(),
             QStringLiteral("QLineEdit { border: 1px solid palette(mid); border-radius: 0px; "
                            "background-color: #ffd893;}"));

    edit.setStyleSheet(QString());
    edit.updateColors();
    QVERIFY(edit.styleSheet().contains(QColor(255, 216, 147).name()));
}

void tst_UseCaseEdit::shouldShowTheCloseIconAsTrailingAction()
{
    CUseCaseEdit edit;
    QVERIFY(edit.crossAction());
    QVERIFY(edit.actions().contains(edit.crossAction()));
    QVERIFY(!edit.crossAction()->icon().isNull());
    const QImage expected =
        edit.style()->standardIcon(QStyle::SP_TitleBarCloseButton).pixmap(16, 16).toImage();
    QCOMPARE(edit.crossAction()->icon().pixmap(16, 16).toImage(), expected);

    // The action sits at the right end of the field.
    edit.resize(300, 22);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    const auto buttons = edit.findChildren<QToolButton*>();
    QToolButton* cross = nullptr;
    for (QToolButton* button : buttons) {
        if (button->defaultAction() == edit.crossAction()) {
            cross = button;
        }
    }
    QVERIFY(cross);
    QVERIFY(cross->geometry().center().x() > edit.width() / 2);
}

void tst_UseCaseEdit::shouldEmitOnCrossActionTriggeredFromTheCross()
{
    CUseCaseEdit edit;
    edit.resize(300, 22);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QSignalSpy crossed(&edit, &CUseCaseEdit::onCrossActionTriggered);

    QToolButton* cross = nullptr;
    const auto buttons = edit.findChildren<QToolButton*>();
    for (QToolButton* button : buttons) {
        if (button->defaultAction() == edit.crossAction()) {
            cross = button;
        }
    }
    QVERIFY(cross);
    QTest::mouseClick(cross, Qt::LeftButton);

    QCOMPARE(crossed.count(), 1);
}

void tst_UseCaseEdit::shouldElideLongTextAtTheRight()
{
    CUseCaseEdit edit;
    edit.resize(200, 22);

    edit.setText(kLongName);

    const QString shown = edit.text();
    QVERIFY(shown != kLongName);
    QVERIFY(shown.endsWith(QChar(0x2026)));
    QVERIFY(kLongName.startsWith(shown.left(shown.size() - 1)));
    QVERIFY(edit.fontMetrics().horizontalAdvance(shown) <= textRoom(edit));
    QCOMPARE(edit.fullText(), kLongName);
    QCOMPARE(edit.toolTip(), kLongName);
}

void tst_UseCaseEdit::shouldShowShortTextUnchanged()
{
    CUseCaseEdit edit;
    edit.resize(300, 22);

    edit.setText(QStringLiteral("Basic"));

    QCOMPARE(edit.text(), QStringLiteral("Basic"));
    QVERIFY(edit.toolTip().isEmpty());
}

void tst_UseCaseEdit::shouldReElideWhenResized()
{
    CUseCaseEdit edit;
    edit.resize(200, 22);
    edit.setText(kLongName);
    QVERIFY(edit.text() != kLongName);

    edit.resize(edit.fontMetrics().horizontalAdvance(kLongName) + 80, 22);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QTRY_COMPARE(edit.text(), kLongName);

    edit.resize(120, 22);
    QTRY_VERIFY(edit.text().size() < kLongName.size());
    QVERIFY(edit.fontMetrics().horizontalAdvance(edit.text()) <= textRoom(edit));
}

void tst_UseCaseEdit::shouldIgnoreTheUsersTyping()
{
    CUseCaseEdit edit;
    edit.resize(300, 22);
    edit.setText(QStringLiteral("Basic"));

    QTest::keyClicks(&edit, QStringLiteral("xyz"));
    QTest::keyClick(&edit, Qt::Key_Backspace);

    QCOMPARE(edit.text(), QStringLiteral("Basic"));
}

void tst_UseCaseEdit::shouldPaintTheUseCaseColour()
{
    CUseCaseEdit edit;
    edit.resize(250, 20);
    edit.setText(kLongName);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));

    const QImage image = edit.grab().toImage();
    QVERIFY(image.save(QStringLiteral("/tmp/usecaseedit.png")));
    // Inside the border, past the text's end: the background only.
    QCOMPARE(image.pixelColor(image.width() - 45, 2), QColor(255, 216, 147));
}

QTEST_MAIN(tst_UseCaseEdit)
#include "tst_usecaseedit.moc"
