#include "visibilitytoolbar.h"

#include <QAction>
#include <QSignalSpy>
#include <QtTest>

using VantoViewer::VisibilityToolBar;

class TestVisibilityToolBar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsAtBeginnerWithOneButtonPerLevel()
    {
        VisibilityToolBar bar;
        QCOMPARE(bar.level(), GenApi::Beginner);
        QCOMPARE(bar.actions().size(), 3);
        QCOMPARE(bar.actionFor(GenApi::Beginner)->text(), QStringLiteral("Beginner"));
        QCOMPARE(bar.actionFor(GenApi::Expert)->text(), QStringLiteral("Expert"));
        QCOMPARE(bar.actionFor(GenApi::Guru)->text(), QStringLiteral("Guru"));
        QVERIFY(!bar.actionFor(GenApi::Invisible));
    }

    void announcesTheUsersChoiceOnly()
    {
        VisibilityToolBar bar;
        QSignalSpy chosen(&bar, &VisibilityToolBar::levelChosen);

        bar.actionFor(GenApi::Guru)->trigger();

        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.at(0).at(0).value<GenApi::EVisibility>(), GenApi::Guru);
        QCOMPARE(bar.level(), GenApi::Guru);

        // A level set by the program shows without an announcement.
        bar.setLevel(GenApi::Expert);
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(bar.level(), GenApi::Expert);
    }

    void keepsOneLevelChecked()
    {
        VisibilityToolBar bar;
        bar.actionFor(GenApi::Expert)->trigger();
        bar.actionFor(GenApi::Guru)->trigger();

        int checked = 0;
        for (GenApi::EVisibility level : {GenApi::Beginner, GenApi::Expert, GenApi::Guru}) {
            checked += bar.actionFor(level)->isChecked() ? 1 : 0;
        }
        QCOMPARE(checked, 1);
        QVERIFY(bar.actionFor(GenApi::Guru)->isChecked());
    }

    void ignoresLevelsBeyondGuru()
    {
        VisibilityToolBar bar;
        bar.setLevel(GenApi::Expert);
        bar.setLevel(GenApi::Invisible);
        bar.setLevel(GenApi::_UndefinedVisibility);
        QCOMPARE(bar.level(), GenApi::Expert);
    }

    void offersKeyboardShortcuts()
    {
        VisibilityToolBar bar;
        QCOMPARE(bar.actionFor(GenApi::Beginner)->shortcut(),
                 QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_1));
        QCOMPARE(bar.actionFor(GenApi::Guru)->shortcut(),
                 QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_3));
    }
};

QTEST_MAIN(TestVisibilityToolBar)
#include "tst_visibilitytoolbar.moc"
