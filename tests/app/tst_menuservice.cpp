#include "menuservice.h"

#include <appcore/appcoreconstants.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

using VantoViewer::MenuService;
namespace Constants = Plugin::AppCore::Constants;

namespace {

const Plugin::AppCore::CContext GLOBAL{Core::CId(Constants::C_GLOBAL_CONTEXT)};

QStringList visibleTexts(const QMenu* menu)
{
    QStringList texts;
    for (QAction* action : menu->actions()) {
        if (action->isVisible()) {
            texts.append(action->isSeparator() ? QStringLiteral("--") : action->text());
        }
    }
    return texts;
}

} // namespace

class TestMenuService : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cameraEditAndWindowMenusAreInTheMenuBar()
    {
        QMainWindow window;
        MenuService service(window.menuBar());

        QMenu* cameraMenu = service.menu(Core::CId(Constants::M_CAMERA));
        QMenu* windowMenu = service.menu(Core::CId(Constants::M_WINDOW));
        QVERIFY(cameraMenu);
        QVERIFY(windowMenu);
        const QList<QAction*> barActions = window.menuBar()->actions();
        QMenu* editMenu = service.menu(Core::CId(MenuService::EDIT_MENU));
        QVERIFY(editMenu);
        QCOMPARE(barActions.size(), 3);
        QCOMPARE(barActions.at(0)->menu(), cameraMenu);
        QCOMPARE(barActions.at(1)->menu(), editMenu);
        QCOMPARE(barActions.at(2)->menu(), windowMenu);
        QCOMPARE(editMenu->title().remove(QLatin1Char('&')), QStringLiteral("Edit"));
        QCOMPARE(cameraMenu->title().remove(QLatin1Char('&')), QStringLiteral("Camera"));
        QCOMPARE(windowMenu->title().remove(QLatin1Char('&')), QStringLiteral("Window"));
        QVERIFY(!service.menu(Core::CId("VantoViewer.Menu.Nothing")));
    }

    void addedActionsAppearInTheirMenuInOrder()
    {
        QMainWindow window;
        MenuService service(window.menuBar());
        QAction copy(QStringLiteral("Copy Camera Features"));
        QAction other(QStringLiteral("Reset Camera"));

        QVERIFY(service.addAction(Core::CId("Test.Copy"), &copy, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));
        QVERIFY(service.addAction(Core::CId("Test.Reset"), &other, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));

        QCOMPARE(
            visibleTexts(service.menu(Core::CId(Constants::M_CAMERA))),
            QStringList({QStringLiteral("Copy Camera Features"), QStringLiteral("Reset Camera")}));
        QCOMPARE(service.action(Core::CId("Test.Copy")), &copy);
        QVERIFY(visibleTexts(service.menu(Core::CId(Constants::M_WINDOW))).isEmpty());
    }

    void groupsAreSeparatedOnlyWhenBothHaveEntries()
    {
        MenuService service(nullptr);
        QAction copy(QStringLiteral("Copy Camera Features"));
        QAction open(QStringLiteral("Open Camera"));
        QMenu* camera = service.menu(Core::CId(Constants::M_CAMERA));

        QVERIFY(service.addAction(Core::CId("Test.Copy"), &copy, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));
        QCOMPARE(visibleTexts(camera), QStringList({QStringLiteral("Copy Camera Features")}));

        QVERIFY(service.addAction(Core::CId("Test.Open"), &open, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_DEVICES), GLOBAL));
        QCOMPARE(visibleTexts(camera),
                 QStringList({QStringLiteral("Open Camera"), QStringLiteral("--"),
                              QStringLiteral("Copy Camera Features")}));

        service.removeAction(Core::CId("Test.Copy"));
        QCOMPARE(visibleTexts(camera), QStringList({QStringLiteral("Open Camera")}));
    }

    void addActionRefuses_data()
    {
        QTest::addColumn<QString>("actionId");
        QTest::addColumn<QString>("menuId");
        QTest::addColumn<QString>("groupId");
        QTest::newRow("taken id") << "Test.Taken" << Constants::M_CAMERA
                                  << Constants::G_CAMERA_FEATURES;
        QTest::newRow("unknown menu") << "Test.New"
                                      << "VantoViewer.Menu.Nothing" << Constants::G_CAMERA_FEATURES;
        QTest::newRow("group of another menu")
            << "Test.New" << Constants::M_CAMERA << Constants::G_WINDOW_WINDOWS;
        QTest::newRow("empty id") << "" << Constants::M_CAMERA << Constants::G_CAMERA_FEATURES;
    }

    void addActionRefuses()
    {
        QFETCH(QString, actionId);
        QFETCH(QString, menuId);
        QFETCH(QString, groupId);
        QMainWindow window;
        MenuService service(window.menuBar());
        QAction taken(QStringLiteral("Taken"));
        QVERIFY(service.addAction(Core::CId("Test.Taken"), &taken, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));
        QAction action(QStringLiteral("New"));

        QVERIFY(!service.addAction(Core::CId(actionId), &action, Core::CId(menuId),
                                   Core::CId(groupId), GLOBAL));
        QVERIFY(!service.addAction(Core::CId("Test.Null"), nullptr, Core::CId(Constants::M_CAMERA),
                                   Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));
        QCOMPARE(visibleTexts(service.menu(Core::CId(Constants::M_CAMERA))),
                 QStringList({QStringLiteral("Taken")}));
    }

    void destroyedActionIsForgottenAndItsIdFreed()
    {
        QMainWindow window;
        MenuService service(window.menuBar());
        auto* action = new QAction(QStringLiteral("Copy Camera Features"));
        QVERIFY(service.addAction(Core::CId("Test.Copy"), action, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));

        delete action;

        QVERIFY(!service.action(Core::CId("Test.Copy")));
        QVERIFY(visibleTexts(service.menu(Core::CId(Constants::M_CAMERA))).isEmpty());
        QAction again(QStringLiteral("Again"));
        QVERIFY(service.addAction(Core::CId("Test.Copy"), &again, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));
    }

    void removedActionLeavesTheMenu()
    {
        QMainWindow window;
        MenuService service(window.menuBar());
        QAction action(QStringLiteral("Features – All"));
        QVERIFY(service.addAction(Core::CId("Test.All"), &action, Core::CId(Constants::M_WINDOW),
                                  Core::CId(Constants::G_WINDOW_WINDOWS), GLOBAL));

        service.removeAction(Core::CId("Test.All"));

        QVERIFY(visibleTexts(service.menu(Core::CId(Constants::M_WINDOW))).isEmpty());
        QVERIFY(!service.action(Core::CId("Test.All")));
    }

    void actionsOfInactiveContextsAreDisabled()
    {
        QMainWindow window;
        MenuService service(window.menuBar());
        QAction global(QStringLiteral("Global"));
        QAction special(QStringLiteral("Special"));
        QVERIFY(service.addAction(Core::CId("Test.Global"), &global, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));
        QVERIFY(service.addAction(Core::CId("Test.Special"), &special,
                                  Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES),
                                  Plugin::AppCore::CContext(Core::CId("Test.Special.Context"))));

        QVERIFY(global.isEnabled());
        QVERIFY(!special.isEnabled());

        // The owner still decides about its action while the context is active.
        global.setEnabled(false);
        service.setActiveContext(GLOBAL);
        QVERIFY(!global.isEnabled());
    }

    void contextMenusAreSharedByIdUntilUnregistered()
    {
        MenuService service(nullptr);
        auto* menu = new QMenu;
        QVERIFY(!service.contextMenu(Core::CId(Constants::CM_FEATURE_TREE)));

        service.registerContextMenu(Core::CId(Constants::CM_FEATURE_TREE), menu);
        QCOMPARE(service.contextMenu(Core::CId(Constants::CM_FEATURE_TREE)), menu);

        service.unregisterContextMenu(Core::CId(Constants::CM_FEATURE_TREE));
        QVERIFY(!service.contextMenu(Core::CId(Constants::CM_FEATURE_TREE)));

        service.registerContextMenu(Core::CId(Constants::CM_FEATURE_TREE), menu);
        delete menu;
        QVERIFY(!service.contextMenu(Core::CId(Constants::CM_FEATURE_TREE)));
    }

    void menusExistWithoutAMenuBar()
    {
        MenuService service(nullptr);
        QAction action(QStringLiteral("Copy"));
        QVERIFY(service.menu(Core::CId(Constants::M_CAMERA)));
        QVERIFY(service.addAction(Core::CId("Test.Copy"), &action, Core::CId(Constants::M_CAMERA),
                                  Core::CId(Constants::G_CAMERA_FEATURES), GLOBAL));
    }
};

QTEST_MAIN(TestMenuService)
#include "tst_menuservice.moc"
