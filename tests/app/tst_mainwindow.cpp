#include "apptestsupport.h"

#include "mainwindow.h"
#include "menuservice.h"
#include "pluginmanager.h"

#include <appcore/appcoreconstants.h>
#include <camerapool.h>
#include <featuretree/ifeaturetreestatusservice.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using VantoViewer::MainWindow;
using VantoViewer::PluginManager;
namespace Constants = Plugin::AppCore::Constants;

namespace {

// The feature tree that the panel shows; the class lives in the plug-in, so it is known here
// by name only.
QAbstractItemView* visibleTree(QDockWidget* dock)
{
    if (!dock) {
        return nullptr;
    }
    const QList<QAbstractItemView*> views = dock->findChildren<QAbstractItemView*>();
    for (QAbstractItemView* view : views) {
        if (view->inherits("FeatureTreeView") && view->isVisible()) {
            return view;
        }
    }
    return nullptr;
}

int visibleTreeRows(QDockWidget* dock)
{
    QAbstractItemView* view = visibleTree(dock);
    return view && view->model() ? view->model()->rowCount() : 0;
}

QAction* actionNamed(QMenu* menu, const QString& text)
{
    for (QAction* action : menu->actions()) {
        if (action->text() == text) {
            return action;
        }
    }
    return nullptr;
}

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_settingsDir;
    QSharedPointer<Backend::CameraPool> m_pool;
    std::unique_ptr<PluginManager> m_plugins;
    std::unique_ptr<MainWindow> m_window;

    // The host as main() builds it, with the built plug-in.
    void startHost()
    {
        m_pool = QSharedPointer<Backend::CameraPool>::create();
        m_plugins = std::make_unique<PluginManager>();
        m_window = std::make_unique<MainWindow>(m_pool);
        for (const auto& service : m_window->hostServices()) {
            m_plugins->registerService(service);
        }
        const QString file = PluginManager::findPlugin(
            QStringLiteral("Nodescope"), {QStringLiteral(VANTOVIEWER_TEST_PLUGIN_DIR)});
        QVERIFY2(m_plugins->load(file), qPrintable(m_plugins->errorString()));
        m_window->attachPluginServices(m_plugins->initializer());
        m_plugins->postInitializeAll();
        m_window->restoreLayout();
        m_window->show();
    }

    void stopHost()
    {
        m_window.reset();
        m_plugins->unloadAll();
        m_plugins.reset();
        m_pool->closeAll();
        m_pool.reset();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_settingsDir.isValid());
        isolateSettings(m_settingsDir.path());
    }

    void init() { startHost(); }

    void cleanup() { stopHost(); }

    void allFeaturesPanelIsShownAndTheOthersAreHidden()
    {
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QDockWidget* basic = m_window->panelDock(Core::CId("Nodescope.Widget.Basic"));
        QVERIFY(all);
        QVERIFY(basic);
        QVERIFY(all->isVisible());
        QVERIFY(!basic->isVisible());
        QCOMPARE(all->windowTitle(), QStringLiteral("Features – All"));
        // Without a camera the panel asks for one.
        auto* placeholder = all->findChild<QLabel*>(QStringLiteral("placeholderLabel"));
        QVERIFY(placeholder);
        QVERIFY(placeholder->isVisible());
    }

    void windowMenuTogglesThePanels()
    {
        QMenu* windowMenu = m_window->menuService()->menu(Core::CId(Constants::M_WINDOW));
        QDockWidget* basic = m_window->panelDock(Core::CId("Nodescope.Widget.Basic"));
        QVERIFY(basic);
        QAction* toggle = actionNamed(windowMenu, basic->windowTitle());
        QVERIFY(toggle);
        QVERIFY(actionNamed(windowMenu, QStringLiteral("Devices")));

        toggle->trigger();
        QVERIFY(basic->isVisible());
        toggle->trigger();
        QVERIFY(!basic->isVisible());
    }

    void simulatedCameraFillsTheFeaturesPanel()
    {
        // Given the simulated camera opened and listed
        const auto info = m_pool->openSimulated();
        m_window->addDevice(info);
        auto* devices = m_window->devicesDock()->findChild<QListWidget*>();
        QCOMPARE(devices->count(), 1);
        QCOMPARE(devices->item(0)->text(), info->getFriendlyName());

        // Then "Features – All" shows its tree
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);
        QVERIFY(!all->findChild<QLabel*>(QStringLiteral("placeholderLabel"))->isVisible());
    }

    void copyCameraFeaturesFromTheCameraMenuPutsThemOnTheClipboard()
    {
        QApplication::clipboard()->clear();
        m_window->addDevice(m_pool->openSimulated());
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);

        QMenu* cameraMenu = m_window->menuService()->menu(Core::CId(Constants::M_CAMERA));
        QAction* copy = actionNamed(cameraMenu, QStringLiteral("Copy Camera Features"));
        QVERIFY(copy);
        QTRY_VERIFY(copy->isEnabled());
        copy->trigger();

        QTRY_VERIFY(QApplication::clipboard()->text().contains(QStringLiteral("Width")));
    }

    void removingTheCameraBringsBackThePlaceholder()
    {
        const auto info = m_pool->openSimulated();
        m_window->addDevice(info);
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);

        m_window->removeDevice(info);

        auto* placeholder = all->findChild<QLabel*>(QStringLiteral("placeholderLabel"));
        QTRY_VERIFY(placeholder->isVisible());
        QVERIFY(!visibleTree(all));
        QCOMPARE(m_window->devicesDock()->findChild<QListWidget*>()->count(), 0);
    }

    void statusBarShowsThePanelsMessages()
    {
        const auto status =
            m_plugins->initializer()->getService<Plugin::FeatureTree::IFeatureTreeStatusService>();
        QVERIFY(status);
        Q_EMIT status->newText(QStringLiteral("Width: 640"));
        QCOMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("Width: 640"));
    }

    // Last: it leaves a layout behind for the next run.
    void panelLayoutIsRestoredInTheNextRun();
};

void TestMainWindow::panelLayoutIsRestoredInTheNextRun()
{
    // Given a run in which the user opened the basic panel
    QDockWidget* basic = m_window->panelDock(Core::CId("Nodescope.Widget.Basic"));
    QVERIFY(basic);
    basic->show();
    basic->raise();

    // When the host stops and starts again
    stopHost();
    startHost();

    // Then the basic panel is open again.
    QVERIFY(m_window->panelDock(Core::CId("Nodescope.Widget.Basic"))->isVisible());
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
