#include "testsupport.h"

#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/searchedit.h"

#include "nodescoperesources.h"

#include <QAction>
#include <QImage>
#include <QScreen>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

namespace {

const QString kEmptyStyleSheet =
    QStringLiteral("QLineEdit { border: 1px solid palette(mid); border-radius: 0px; "
                   "background-color: palette(button);}");
const QString kFilledStyleSheet =
    QStringLiteral("QLineEdit { border: 1px solid palette(mid); border-radius: 0px; "
                   "background-color: #ffffa7; }");

QAction* lensAction(const SearchEdit& edit)
{
    return edit.findChild<QAction*>(QStringLiteral("searchLensAction"));
}

QAction* clearAction(const SearchEdit& edit)
{
    return edit.findChild<QAction*>(QStringLiteral("searchClearAction"));
}

// The button QLineEdit shows for one of its actions.
QWidget* buttonOf(const SearchEdit& edit, QAction* action)
{
    const QList<QWidget*> widgets = action->associatedWidgets();
    for (QWidget* widget : widgets) {
        if (widget != &edit) {
            return widget;
        }
    }
    return nullptr;
}

QColor background(SearchEdit& edit)
{
    // Halfway across: right of any short text, left of the clearing button.
    const QImage image = edit.grab().toImage();
    return QColor(image.pixel(image.width() / 2, image.height() / 2));
}

// The shadow string is told apart by its colour: the disabled text colour, made pure red.
void useRedShadow(SearchEdit& edit)
{
    QPalette palette = edit.palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::red);
    edit.setPalette(palette);
}

QRect redInk(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) - qGreen(pixel) > 60 && qRed(pixel) - qBlue(pixel) > 60) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

} // namespace

class tst_SearchEdit : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Plugin::Nodescope::initNodescopeResources(); }

    void shouldShowLensOnButtonBackgroundWhileEmpty()
    {
        // Given a new search field
        SearchEdit edit;
        edit.resize(300, 24);
        edit.show();

        // Then it shows the lens, no clearing button, and the button colour behind
        QVERIFY(lensAction(edit));
        QVERIFY(clearAction(edit));
        QVERIFY(lensAction(edit)->isVisible());
        QVERIFY(!lensAction(edit)->icon().isNull());
        QVERIFY(!clearAction(edit)->isVisible());
        QCOMPARE(edit.styleSheet(), kEmptyStyleSheet);
        QCOMPARE(background(edit), edit.palette().color(QPalette::Button));
    }

    void shouldTurnYellowAndHideLensWhenTyping()
    {
        // Given an empty search field
        SearchEdit edit;
        edit.resize(300, 24);
        edit.show();
        edit.setFocus();

        // When the user types
        QTest::keyClicks(&edit, QStringLiteral("gain"));

        // Then the background is the search highlight, the lens goes, the clearing button comes
        QCOMPARE(edit.text(), QStringLiteral("gain"));
        QCOMPARE(edit.styleSheet(), kFilledStyleSheet);
        QCOMPARE(background(edit), QColor(0xff, 0xff, 0xa7));
        QVERIFY(!lensAction(edit)->isVisible());
        QVERIFY(clearAction(edit)->isVisible());
    }

    void shouldRestoreButtonBackgroundAndLensWhenCleared_data()
    {
        QTest::addColumn<bool>("byButton");
        QTest::newRow("backspace") << false;
        QTest::newRow("clearing button") << true;
    }

    void shouldRestoreButtonBackgroundAndLensWhenCleared()
    {
        QFETCH(bool, byButton);
        // Given a search field holding text
        SearchEdit edit;
        edit.resize(300, 24);
        edit.show();
        edit.setFocus();
        QTest::keyClicks(&edit, QStringLiteral("ex"));
        QSignalSpy changed(&edit, &QLineEdit::textChanged);

        // When the text is cleared
        if (byButton) {
            QWidget* button = buttonOf(edit, clearAction(edit));
            QVERIFY(button);
            QVERIFY(button->isVisible());
            QTest::mouseClick(button, Qt::LeftButton);
        } else {
            QTest::keyClick(&edit, Qt::Key_Backspace);
            QTest::keyClick(&edit, Qt::Key_Backspace);
        }

        // Then the field is empty on the button colour, with the lens back
        QCOMPARE(edit.text(), QString());
        QVERIFY(changed.count() > 0);
        QCOMPARE(changed.last().at(0).toString(), QString());
        QCOMPARE(edit.styleSheet(), kEmptyStyleSheet);
        QCOMPARE(background(edit), edit.palette().color(QPalette::Button));
        QVERIFY(lensAction(edit)->isVisible());
        QVERIFY(!clearAction(edit)->isVisible());
    }

    void shouldFollowTextSetByProgram()
    {
        SearchEdit edit;
        edit.setText(QStringLiteral("Width"));
        QVERIFY(!lensAction(edit)->isVisible());
        QVERIFY(clearAction(edit)->isVisible());
        QCOMPARE(edit.styleSheet(), kFilledStyleSheet);

        clearAction(edit)->trigger();

        QCOMPARE(edit.text(), QString());
        QVERIFY(lensAction(edit)->isVisible());
        QCOMPARE(edit.styleSheet(), kEmptyStyleSheet);
    }

    void shouldUseTheSearchHighlightColour()
    {
        QCOMPARE(SearchEdit::highlightColor(), QColor(255, 255, 167));
        QCOMPARE(SearchEdit::highlightColor(), SEARCH_HIGHLIGHT_COLOR);
        QCOMPARE(SearchEdit::highlightColor().alpha(), 255);
        QCOMPARE(SearchEdit::highlightColor().name(), QStringLiteral("#ffffa7"));
    }

    void shouldKeepEightPointFontWhateverIsSet()
    {
        SearchEdit edit;
        QCOMPARE(edit.font().pointSize(), 8);

        QFont large = edit.font();
        large.setPointSize(14);
        edit.setFont(large);

        QCOMPARE(edit.font().pointSize(), 8);
    }

    void shouldSizeLensFromTheFontsLineHeight()
    {
        SearchEdit edit;
        const QList<QSize> sizes = lensAction(edit)->icon().availableSizes();
        QCOMPARE(sizes.size(), 1);
        const int side = qRound(edit.fontMetrics().height() * 10.0 / 7.0);
        QCOMPARE(sizes.first(), QSize(side, side));
    }

    void shouldPaintShadowStringOnlyWhileEmpty()
    {
        // Given two empty fields, one with a shadow string
        SearchEdit plain;
        SearchEdit shadowed;
        for (SearchEdit* edit : {&plain, &shadowed}) {
            useRedShadow(*edit);
            edit->resize(300, 24);
            edit->show();
        }
        shadowed.setShadowDisplayString(QStringLiteral("Search for parameters"));
        QCOMPARE(shadowed.shadowDisplayString(), QStringLiteral("Search for parameters"));

        // Then only that one shows it, in the disabled text colour, vertically centred
        QVERIFY(redInk(plain.grab().toImage()).isNull());
        const QRect shadow = redInk(shadowed.grab().toImage());
        QVERIFY(!shadow.isNull());
        QVERIFY(qAbs(shadow.center().y() - shadowed.height() / 2) <= 2);
        QVERIFY(shadow.width() > 3 * shadowed.fontMetrics().averageCharWidth());

        // When both hold text
        shadowed.setText(QStringLiteral("x"));

        // Then the shadow string is gone
        QVERIFY(redInk(shadowed.grab().toImage()).isNull());
    }

    void shouldStartShadowStringRightOfTheLens()
    {
        SearchEdit edit;
        useRedShadow(edit);
        edit.resize(300, 24);
        edit.show();
        edit.setShadowDisplayString(QStringLiteral("Search for parameters"));

        const QRect shadow = redInk(edit.grab().toImage());

        const QWidget* lens = buttonOf(edit, lensAction(edit));
        QVERIFY(lens);
        QVERIFY(lens->isVisible());
        QVERIFY2(
            shadow.left() > lens->geometry().right(),
            qPrintable(QStringLiteral("%1 %2").arg(shadow.left()).arg(lens->geometry().right())));
    }

    void shouldElideShadowStringShortOfTheRightSide()
    {
        // Given a narrow field with a long shadow string
        SearchEdit edit;
        useRedShadow(edit);
        edit.resize(140, 24);
        edit.show();
        const QString text = QStringLiteral("Search for parameters by name or display name");
        edit.setShadowDisplayString(text);
        QVERIFY(edit.fontMetrics().horizontalAdvance(text) > edit.width());

        // Then the string stops 30 pixels short of the right side, within the scaled width
        const QRect shadow = redInk(edit.grab().toImage());
        QVERIFY(!shadow.isNull());
        QVERIFY2(shadow.right() < edit.width() - 30, qPrintable(QString::number(shadow.right())));
    }
};

QTEST_MAIN(tst_SearchEdit)
#include "tst_searchedit.moc"
