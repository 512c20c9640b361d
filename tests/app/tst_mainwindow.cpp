#include "apptestsupport.h"

#include "devicespane.h"
#include "featurestatusbar.h"
#include "mainwindow.h"
#include "menuservice.h"
#include "openingprogress.h"
#include "pluginmanager.h"
#include "visibilitytoolbar.h"
#include "windowservice.h"

#include <appcore/appcoreconstants.h>
#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <featuretree/ifeaturetreestatusservice.h>
#include <simulateddevice.h>
#include <parametercollection/iadvancedparameteraccess.h>
#include <parametercollection/iparametercollection.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QToolButton>
#include <QTreeView>
#include <QListWidget>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QStatusBar>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>
#include <QWindow>
#include <QtTest>

#include <atomic>

#include <memory>

using VantoViewer::DevicesPane;
using VantoViewer::MainWindow;
using VantoViewer::PluginManager;
using VantoViewer::VisibilityToolBar;
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

// The level the default panel keeps between runs.
int storedPanelLevel(const MainWindow& window)
{
    return window.windowService()
        ->restoreState(Core::CId(MainWindow::DEFAULT_PANEL_ID), QStringLiteral("Visibility"),
                       QVariant())
        .toInt();
}

// Roles of the plug-in's feature tree, part of its contract with views.
constexpr int FULL_NAME_ROLE = TREE_FULL_NAME_ROLE;
constexpr int IS_CATEGORY_ROLE = Qt::UserRole + 5;

// Full names of the features below `parent`, fetching rows that are built on demand.
void collectFeatures(QAbstractItemModel* model, const QModelIndex& parent, QStringList* names)
{
    while (model->canFetchMore(parent)) {
        model->fetchMore(parent);
    }
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const QString name = index.data(FULL_NAME_ROLE).toString();
        if (!index.data(IS_CATEGORY_ROLE).toBool() && name.contains(QLatin1Char('/'))) {
            names->append(name);
        }
        collectFeatures(model, index, names);
    }
}

// Rows the view shows (not hidden by the visibility level) below `parent`, expanded.
int shownFeatureRows(QTreeView* view, const QModelIndex& parent)
{
    QAbstractItemModel* model = view->model();
    int shown = 0;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        if (view->isRowHidden(row, parent)) {
            continue;
        }
        const QModelIndex index = model->index(row, 0, parent);
        if (!index.data(IS_CATEGORY_ROLE).toBool() &&
            index.data(FULL_NAME_ROLE).toString().contains(QLatin1Char('/'))) {
            ++shown;
        }
        shown += shownFeatureRows(view, index);
    }
    return shown;
}

QStringList basicUseCaseFeatures()
{
    // The plug-in's resources are the process's once it is loaded.
    QFile file(QStringLiteral(":/nodescope/usecases/basic.json"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QStringList names;
    const QJsonArray useCases = QJsonDocument::fromJson(file.readAll())
                                    .object()
                                    .value(QStringLiteral("UseCases"))
                                    .toArray();
    for (const QJsonValue& useCase : useCases) {
        for (const QJsonValue& name :
             useCase.toObject().value(QStringLiteral("Parameters")).toArray()) {
            names.append(name.toString());
        }
    }
    return names;
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

// Opens the plug-in's feature tab editor from a panel and returns its scene's root, which
// declares the editor's signals ("nameChanged", "add"); null when it did not open.
QObject* openTabEditor(QDockWidget* panel)
{
    if (!panel || !panel->widget() ||
        !QMetaObject::invokeMethod(panel->widget(), "showOptionsMenu")) {
        return nullptr;
    }
    for (QWindow* window : QGuiApplication::allWindows()) {
        for (QObject* object : window->findChildren<QObject*>()) {
            const QMetaObject* meta = object->metaObject();
            if (meta->indexOfSignal("add()") >= 0 &&
                meta->indexOfSignal("nameChanged(int,QString)") >= 0) {
                return object;
            }
        }
    }
    return nullptr;
}

// The simulated device behind a camera's collection; its fault settings may be used from
// here, the rest belongs to the device thread.
Backend::SimulatedDevice*
simulatedDeviceOf(const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    auto* device = qobject_cast<Backend::DeviceParameterCollection*>(collection.data());
    Backend::SimulatedDevice* simulated = nullptr;
    if (device) {
        device->runOnDeviceThread(
            [&simulated](Backend::DeviceWorker& worker) { simulated = worker.simulatedDevice(0); });
    }
    return simulated;
}

// Makes the camera stop answering, as a camera that was unplugged, and waits until the
// collection knows.
bool loseCamera(const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    Backend::SimulatedDevice* device = simulatedDeviceOf(collection);
    if (!device) {
        return false;
    }
    QSignalSpy lost(collection.data(), &ParameterCollection::IParameterCollection::deviceLost);
    device->setFault(Backend::SimulatedDevice::Fault::Timeout);
    // A read that must reach the device, whatever the panels observe.
    const auto width = collection->getParameter(QStringLiteral("@CameraDevice/Width"));
    width->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    return collection->isLost() || lost.wait(10000);
}

// Types a value into the feature's row of the tree and presses Enter.
bool typeIntoTree(QTreeView* view, const QString& fullName, const QString& text)
{
    const QModelIndex feature = findFeature(view->model(), QModelIndex(), fullName);
    if (!feature.isValid()) {
        return false;
    }
    view->scrollTo(feature);
    const QModelIndex value = feature.sibling(feature.row(), 1);
    view->setCurrentIndex(value);
    view->edit(value);
    QWidget* editor = view->indexWidget(value);
    QLineEdit* line = editor ? editor->findChild<QLineEdit*>() : nullptr;
    if (!line) {
        line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    }
    if (!line) {
        return false;
    }
    line->selectAll();
    QTest::keyClicks(line, text);
    QTest::keyClick(line, Qt::Key_Return);
    return true;
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
        const QString failure = startTestHost(m_pool, m_plugins, m_window);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
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

    void windowMenuListsNoPanelOfAnUnnamedTab()
    {
        QMenu* windowMenu = m_window->menuService()->menu(Core::CId(Constants::M_WINDOW));
        QStringList shown;
        for (QAction* action : windowMenu->actions()) {
            if (action->isVisible() && !action->isSeparator()) {
                shown.append(action->text());
                QVERIFY2(!action->text().trimmed().endsWith(QStringLiteral("–")),
                         qPrintable(action->text()));
            }
        }
        QVERIFY(shown.contains(QStringLiteral("Features – All")));
        QVERIFY(shown.contains(QStringLiteral("Changes")));
    }

    void panelTitleFollowsItsTabsNameOnOk()
    {
        QMenu* windowMenu = m_window->menuService()->menu(Core::CId(Constants::M_WINDOW));
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QDockWidget* tab = m_window->panelDock(Core::CId("Nodescope.Widget.User1"));
        QVERIFY(all);
        QVERIFY(tab);
        QVERIFY(!tab->toggleViewAction()->isVisible());

        // When the user names the second tab in the tab editor and presses OK
        QObject* editor = openTabEditor(all);
        QVERIFY2(editor, "the feature tab editor did not open");
        QMetaObject::invokeMethod(editor, "nameChanged", Q_ARG(int, 1),
                                  Q_ARG(QString, QStringLiteral("Optics")));
        QMetaObject::invokeMethod(editor, "add");

        // Then its panel has the name at once, in its dock and in the Window menu
        QCOMPARE(tab->windowTitle(), QStringLiteral("Features – Optics"));
        QAction* toggle = actionNamed(windowMenu, QStringLiteral("Features – Optics"));
        QVERIFY(toggle);
        QVERIFY(toggle->isVisible());
        QVERIFY(tab->isVisible());

        // And a rename follows the same way
        editor = openTabEditor(all);
        QVERIFY(editor);
        QMetaObject::invokeMethod(editor, "nameChanged", Q_ARG(int, 1),
                                  Q_ARG(QString, QStringLiteral("Timing")));
        QMetaObject::invokeMethod(editor, "add");
        QCOMPARE(tab->windowTitle(), QStringLiteral("Features – Timing"));
        QVERIFY(actionNamed(windowMenu, QStringLiteral("Features – Timing")));
        QVERIFY(!actionNamed(windowMenu, QStringLiteral("Features – Optics")));

        // A tab whose name the user clears is gone from the window
        editor = openTabEditor(all);
        QVERIFY(editor);
        QMetaObject::invokeMethod(editor, "nameChanged", Q_ARG(int, 1), Q_ARG(QString, QString()));
        QMetaObject::invokeMethod(editor, "add");
        QVERIFY(!tab->isVisible());
        QVERIFY(!tab->toggleViewAction()->isVisible());
    }

    void cameraMenuOffersEverythingTheOpenButtonDoes()
    {
        QMenu* cameraMenu = m_window->menuService()->menu(Core::CId(Constants::M_CAMERA));
        auto* open = m_window->devicesPane()->findChild<QToolButton*>(QStringLiteral("openButton"));
        QVERIFY(open && open->menu());
        QStringList offered;
        for (QAction* action : cameraMenu->actions()) {
            if (action->isVisible() && !action->isSeparator()) {
                offered.append(action->text().remove(QLatin1Char('&')));
            }
        }
        QAction* builtIn = nullptr;
        for (QAction* action : open->menu()->actions()) {
            const QString text = action->text().remove(QLatin1Char('&'));
            const QString entry = QStringLiteral("Open ") + text;
            QVERIFY2(offered.contains(entry), qPrintable(entry));
            if (action->objectName() == QLatin1String("openBuiltInAction")) {
                builtIn = actionNamed(cameraMenu, entry);
            }
        }
        QVERIFY(builtIn);
        builtIn->trigger();
        QCOMPARE(m_window->devicesPane()->devices().size(), 1);
    }

    void simulatedCameraFillsTheFeaturesPanel()
    {
        // Given the simulated camera opened and listed
        const auto info = m_pool->openSimulated();
        m_window->addDevice(info);
        auto* devices = m_window->devicesPane()->deviceList();
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
        QCOMPARE(m_window->devicesPane()->deviceList()->count(), 0);
    }

    void closingAnotherCameraKeepsTheActiveOneShown()
    {
        // Given two cameras listed, the first one active and shown
        const auto first = m_pool->openSimulated();
        const auto second = m_pool->openSimulated();
        m_window->addDevice(first);
        m_window->addDevice(second);
        m_window->devicesPane()->setActiveDevice(first);
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);
        QAction* copy = actionNamed(m_window->menuService()->menu(Core::CId(Constants::M_CAMERA)),
                                    QStringLiteral("Copy Camera Features"));
        QVERIFY(copy);

        // When the other one is closed
        m_window->closeCamera(second);

        // Then the panel goes on showing the active camera's features, at once
        QCOMPARE(m_window->devicesPane()->activeDevice(), first);
        QVERIFY(visibleTreeRows(all) > 0);
        QVERIFY(!all->findChild<QLabel*>(QStringLiteral("placeholderLabel"))->isVisible());
        QVERIFY(copy->isEnabled());
    }

    void basicPanelShowsTheBasicUseCase()
    {
        QDockWidget* basic = m_window->panelDock(Core::CId("Nodescope.Widget.Basic"));
        basic->show();
        basic->raise();
        m_window->addDevice(m_pool->openSimulated());
        QTRY_VERIFY(visibleTreeRows(basic) > 0);

        QStringList shown;
        collectFeatures(visibleTree(basic)->model(), QModelIndex(), &shown);
        const QStringList basicList = basicUseCaseFeatures();
        QVERIFY(!basicList.isEmpty());
        QVERIFY(shown.contains(QStringLiteral("@CameraDevice/Width")));
        QVERIFY(shown.contains(QStringLiteral("@CameraDevice/PixelFormat")));
        for (const QString& name : qAsConst(shown)) {
            QVERIFY2(basicList.contains(name), qPrintable(name));
        }
        // Every basic feature that the all-features panel shows at this level is there too,
        // and the all-features panel shows more.
        QStringList all;
        collectFeatures(
            visibleTree(m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID)))->model(),
            QModelIndex(), &all);
        for (const QString& name : qAsConst(all)) {
            QVERIFY2(!basicList.contains(name) || shown.contains(name), qPrintable(name));
        }
        QVERIFY(all.size() > shown.size());
    }

    void editingAValueInTheTreeWritesItToTheCamera()
    {
        const auto info = m_pool->openSimulated();
        m_window->addDevice(info);
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);
        auto* view = qobject_cast<QTreeView*>(visibleTree(all));
        QVERIFY(view);
        const QModelIndex width =
            findFeature(view->model(), QModelIndex(), QStringLiteral("@CameraDevice/Width"));
        QVERIFY(width.isValid());
        view->scrollTo(width);
        const QModelIndex value = width.sibling(width.row(), 1);

        // When the user types a new width into the value editor and presses Enter
        view->setCurrentIndex(value);
        view->edit(value);
        QWidget* editor = view->indexWidget(value);
        QTRY_VERIFY(editor || view->findChild<QLineEdit*>());
        QLineEdit* line = editor ? editor->findChild<QLineEdit*>() : nullptr;
        if (!line) {
            line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        }
        QVERIFY2(line, "no text field in the width editor");
        line->selectAll();
        QTest::keyClicks(line, QStringLiteral("800"));
        QTest::keyClick(line, Qt::Key_Return);

        // Then the camera has it
        const auto parameter = m_pool->getParameterCollection(info)->getParameter(
            QStringLiteral("@CameraDevice/Width"));
        QVERIFY(parameter);
        auto* integer = qobject_cast<ParameterCollection::IIntegerParameter*>(parameter.data());
        QVERIFY(integer);
        QTRY_COMPARE(integer->getValue(), qint64(800));
    }

    void visibilityToolBarSetsTheLevelOfThePanels()
    {
        m_window->addDevice(m_pool->openSimulated());
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);
        auto* view = qobject_cast<QTreeView*>(visibleTree(all));
        view->expandAll();
        VisibilityToolBar* toolBar = m_window->visibilityToolBar();
        QCOMPARE(toolBar->level(), GenApi::Beginner);
        const int beginnerRows = shownFeatureRows(view, QModelIndex());
        QVERIFY(beginnerRows > 0);

        // When the user picks Guru on the tool bar
        toolBar->actionFor(GenApi::Guru)->trigger();

        // Then the panel shows more features and keeps the level, as does the window
        view->expandAll();
        QVERIFY(shownFeatureRows(view, QModelIndex()) > beginnerRows);
        QCOMPARE(m_window->visibility(), GenApi::Guru);
        QCOMPARE(storedPanelLevel(*m_window), int(GenApi::Guru));

        // And back to Beginner shows the Beginner features again
        toolBar->actionFor(GenApi::Beginner)->trigger();
        view->expandAll();
        QCOMPARE(shownFeatureRows(view, QModelIndex()), beginnerRows);
    }

    void toolBarFollowsTheLevelThePanelsReport()
    {
        const auto status =
            m_plugins->initializer()->getService<Plugin::FeatureTree::IFeatureTreeStatusService>();
        QVERIFY(status);
        Q_EMIT status->visibilityChanged(GenApi::Expert);
        QCOMPARE(m_window->visibilityToolBar()->level(), GenApi::Expert);
        QVERIFY(m_window->visibilityToolBar()->actionFor(GenApi::Expert)->isChecked());
        m_window->setVisibility(GenApi::Beginner);
    }

    void statusBarShowsTheCurrentFeature()
    {
        const auto info = m_pool->openSimulated();
        m_window->addDevice(info);
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);
        auto* view = visibleTree(all);
        const QModelIndex width =
            findFeature(view->model(), QModelIndex(), QStringLiteral("@CameraDevice/Width"));
        QVERIFY(width.isValid());

        view->setCurrentIndex(width);

        const auto parameter = m_pool->getParameterCollection(info)->getParameter(
            QStringLiteral("@CameraDevice/Width"));
        const QString displayName = parameter->getProperty(QStringLiteral("DisplayName"));
        const QString description = parameter->getProperty(QStringLiteral("Description"));
        QVERIFY(!description.isEmpty());
        QTRY_COMPARE(m_window->featureStatusBar()->featureText(),
                     displayName + QStringLiteral(": ") + description.simplified());

        // A camera that goes clears the field.
        m_window->removeDevice(info);
        QCOMPARE(m_window->featureStatusBar()->featureText(), QString());
    }

    void lostCameraIsMarkedAndReported()
    {
        const auto info = m_pool->openSimulated();
        m_window->addDevice(info);
        const auto collection = m_pool->getParameterCollection(info);

        // The backend's word that the device is gone, as its worker reports it
        Q_EMIT collection->deviceLost(QStringLiteral("control channel closed"));

        QVERIFY(m_window->devicesPane()->isMarkedLost(info));
        QVERIFY(m_window->featureStatusBar()->errorText().contains(
            QStringLiteral("control channel closed")));
        QVERIFY(m_window->featureStatusBar()->errorText().contains(info->getFriendlyName()));
        // Still listed: the user closes it when ready.
        QCOMPARE(m_window->devicesPane()->devices().size(), 1);
    }

    void reconnectBringsBackALostCameraInPlaceOfTheOld()
    {
        using Plugin::FeatureTree::IFeatureTreeControlService;
        const auto control = m_plugins->initializer()->getService<IFeatureTreeControlService>();
        QVERIFY(control);
        DevicesPane* pane = m_window->devicesPane();
        QAction* reconnect = pane->reconnectAction();
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));

        // Given the built-in camera shown, then lost because its device stopped answering
        pane->findChild<QAction*>(QStringLiteral("openBuiltInAction"))->trigger();
        const auto lostInfo = pane->activeDevice();
        QVERIFY(lostInfo);
        QTRY_VERIFY(visibleTreeRows(all) > 0);
        auto lostCollection = m_pool->getParameterCollection(lostInfo);
        Backend::SimulatedDevice* lostDevice = simulatedDeviceOf(lostCollection);
        QVERIFY(lostDevice);
        QVERIFY(!reconnect->isEnabled());
        QVERIFY(loseCamera(lostCollection));
        QVERIFY(pane->isMarkedLost(lostInfo));
        QVERIFY(reconnect->isEnabled());
        QSignalSpy unregistered(control.data(), &IFeatureTreeControlService::deviceUnregistered);
        QSignalSpy registered(control.data(), &IFeatureTreeControlService::deviceRegistered);

        // When the user asks to reconnect while the camera still does not answer
        reconnect->trigger();

        // Then that fails with the reason in the status bar, and nothing else changes
        const QString error = m_window->featureStatusBar()->errorText();
        QVERIFY2(error.contains(QStringLiteral("Cannot reconnect ") + lostInfo->getFriendlyName()),
                 qPrintable(error));
        QVERIFY2(error.contains(QStringLiteral("does not answer")), qPrintable(error));
        QVERIFY(pane->isMarkedLost(lostInfo));
        QCOMPARE(pane->devices(), QList<QSharedPointer<Plugin::CameraPool::IBaseInfo>>{lostInfo});
        QCOMPARE(m_pool->getOpenDevices().size(), 1);
        QCOMPARE(unregistered.count(), 0);
        QCOMPARE(registered.count(), 0);

        // When the camera answers again and the user reconnects
        lostDevice->setFault(Backend::SimulatedDevice::Fault::None);
        reconnect->trigger();

        // Then a new camera with the same id takes the lost one's row and is active
        const auto fresh = pane->activeDevice();
        QVERIFY(fresh);
        QVERIFY(fresh != lostInfo);
        QCOMPARE(fresh->getId(), lostInfo->getId());
        QCOMPARE(pane->devices(), QList<QSharedPointer<Plugin::CameraPool::IBaseInfo>>{fresh});
        QVERIFY(!pane->isMarkedLost(fresh));
        QVERIFY(!reconnect->isEnabled());
        QCOMPARE(m_pool->getOpenDevices(),
                 QList<QSharedPointer<Plugin::CameraPool::IBaseInfo>>{fresh});
        QCOMPARE(m_window->featureStatusBar()->errorText(), QString());
        // and the panels swapped the old camera for the new one
        QCOMPARE(unregistered.count(), 1);
        QCOMPARE(unregistered.at(0).at(0).value<QSharedPointer<Plugin::CameraPool::IBaseInfo>>(),
                 lostInfo);
        QCOMPARE(registered.count(), 1);
        QCOMPARE(registered.at(0).at(0).value<QSharedPointer<Plugin::CameraPool::IBaseInfo>>(),
                 fresh);
        QPointer<QObject> oldCollection = lostCollection.data();
        lostCollection.reset();
        QTRY_VERIFY(oldCollection.isNull());

        // and the tree shows the new collection: an edit there reaches the new camera
        QTRY_VERIFY(visibleTreeRows(all) > 0);
        auto* view = qobject_cast<QTreeView*>(visibleTree(all));
        QVERIFY(view);
        QVERIFY(typeIntoTree(view, QStringLiteral("@CameraDevice/Width"), QStringLiteral("800")));
        const auto width = m_pool->getParameterCollection(fresh)->getParameter(
            QStringLiteral("@CameraDevice/Width"));
        auto* integer = qobject_cast<ParameterCollection::IIntegerParameter*>(width.data());
        QVERIFY(integer);
        QTRY_COMPARE(integer->getValue(), qint64(800));
    }

    void closingALostCameraDoesNotWaitForItsDeviceThread()
    {
        // Given a lost camera whose device thread is stuck, as in a call to a silent camera
        const auto info = m_window->openSimulatedCamera(QString());
        QVERIFY(info);
        auto collection = m_pool->getParameterCollection(info);
        QVERIFY(loseCamera(collection));
        auto* device = qobject_cast<Backend::DeviceParameterCollection*>(collection.data());
        QSemaphore entered;
        QSemaphore release;
        QThread* holder = QThread::create([device, &entered, &release] {
            device->runOnDeviceThread([&entered, &release](Backend::DeviceWorker&) {
                entered.release();
                release.acquire();
            });
        });
        holder->start();
        entered.acquire();
        // Should the window wait for the thread after all, this lets the test end with a
        // failure instead of hanging.
        std::atomic_bool rescued{false};
        QSemaphore finished;
        QThread* rescuer = QThread::create([&release, &finished, &rescued] {
            if (!finished.tryAcquire(1, 20000)) {
                rescued = true;
                release.release();
            }
        });
        rescuer->start();
        QPointer<QObject> watched = collection.data();
        collection.reset();

        // When the user closes it
        m_window->closeCamera(info);

        // Then the collection goes while its thread is still held
        QTRY_VERIFY(watched.isNull());
        QVERIFY(!rescued);
        QCOMPARE(m_window->devicesPane()->devices().size(), 0);
        finished.release();
        if (!rescued) {
            release.release();
        }
        holder->wait();
        rescuer->wait();
        delete holder;
        delete rescuer;
    }

    void devicesPaneOpensAndClosesCameras()
    {
        DevicesPane* pane = m_window->devicesPane();
        auto* open = pane->findChild<QAction*>(QStringLiteral("openBuiltInAction"));
        QVERIFY(open);

        open->trigger();

        QCOMPARE(pane->devices().size(), 1);
        QCOMPARE(m_pool->getOpenDevices().size(), 1);
        QDockWidget* all = m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTreeRows(all) > 0);

        auto* close = pane->findChild<QToolButton*>(QStringLiteral("closeButton"));
        QVERIFY(close->isEnabled());
        QTest::mouseClick(close, Qt::LeftButton);

        QCOMPARE(pane->devices().size(), 0);
        QCOMPARE(m_pool->getOpenDevices().size(), 0);
        QVERIFY(!close->isEnabled());
        QTRY_VERIFY(all->findChild<QLabel*>(QStringLiteral("placeholderLabel"))->isVisible());
    }

    void failedOpenIsReportedAndChangesNothing()
    {
        m_window->addDevice(m_pool->openSimulated());
        QTemporaryDir dir;
        const QString broken = dir.filePath(QStringLiteral("broken.xml"));
        QFile file(broken);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<RegisterDescription><Category Name=\"Root\">");
        file.close();

        QVERIFY(!m_window->openSimulatedCamera(broken));

        QVERIFY(m_window->featureStatusBar()->errorText().contains(broken));
        QCOMPARE(m_window->devicesPane()->devices().size(), 1);
        QVERIFY(visibleTreeRows(m_window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID))) > 0);
    }

    void featureTreeContextMenuHasTheWindowsEntries()
    {
        QMenu* shared = m_window->menuService()->contextMenu(Core::CId(Constants::CM_FEATURE_TREE));
        QVERIFY(shared);
        QVERIFY(actionNamed(shared, QStringLiteral("Refresh Features")));
        auto* levels =
            shared->findChild<QMenu*>(QStringLiteral("VantoViewer.ContextMenu.Visibility"));
        QVERIFY(levels);
        QCOMPARE(levels->actions().size(), 3);
        QVERIFY(actionNamed(levels, QStringLiteral("Guru")));
    }

    void panelsCanBeShownByIdOrTitle()
    {
        QVERIFY(m_window->showPanel(QStringLiteral("Nodescope.Widget.Basic")));
        QVERIFY(m_window->panelDock(Core::CId("Nodescope.Widget.Basic"))->isVisible());
        QVERIFY(m_window->showPanel(QStringLiteral("features – all")));
        QVERIFY(!m_window->showPanel(QStringLiteral("Nodescope.Widget.Nothing")));
    }

    void statusBarShowsThePanelsMessages()
    {
        const auto status =
            m_plugins->initializer()->getService<Plugin::FeatureTree::IFeatureTreeStatusService>();
        QVERIFY(status);
        Q_EMIT status->newText(QStringLiteral("Width: 640"));
        QCOMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("Width: 640"));
    }

    void openingShowsProgressWithACancelThatLeavesNothingHalfOpen()
    {
        // Given a camera being opened, with the progress shown
        QPointer<QProgressDialog> progress;
        bool cancelled = false;
        QTimer::singleShot(0, m_window.get(), [this, &progress, &cancelled]() {
            progress = m_window->findChild<QProgressDialog*>(
                QLatin1String(VantoViewer::OpeningProgress::OBJECT_NAME));
            // When the user presses its Cancel while the window answers
            if (progress && progress->isVisible()) {
                auto* cancel = progress->findChild<QPushButton*>();
                QTest::mouseClick(cancel, Qt::LeftButton);
                cancelled = true;
            }
        });

        const auto opened = m_window->openSimulatedCamera(QString());

        // Then the open ends at once without a camera, says so, and the dialog has gone
        QVERIFY(cancelled);
        QVERIFY(!opened);
        QVERIFY(!progress);
        QCOMPARE(m_window->devicesPane()->devices().size(), 0);
        QCOMPARE(m_pool->getOpenDevices().size(), 0);
        QVERIFY2(m_window->featureStatusBar()->errorText().contains(QStringLiteral("cancelled")),
                 qPrintable(m_window->featureStatusBar()->errorText()));

        // And the next open works
        QVERIFY(m_window->openSimulatedCamera(QString()));
        QCOMPARE(m_window->devicesPane()->devices().size(), 1);
    }

    void panelLevelIsKeptWhenTheWindowsOwnIsMissing()
    {
        // Given panels stored at Guru and the window's own level lost
        m_window->setVisibility(GenApi::Guru);
        stopHost();
        {
            QSettings settings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer"));
            settings.remove(QStringLiteral("Panels/VantoViewer.MainWindow/Visibility"));
            QCOMPARE(
                settings.value(QStringLiteral("Panels/Nodescope.Widget.All/Visibility")).toInt(),
                int(GenApi::Guru));
        }

        // When the host starts again
        startHost();

        // Then the panels and the window show Guru, and keep it
        QCOMPARE(m_window->visibility(), GenApi::Guru);
        QCOMPARE(storedPanelLevel(*m_window), int(GenApi::Guru));
        m_window->setVisibility(GenApi::Beginner);
    }

    void settingsThatCannotBeWrittenAreReportedOnceInTheWindow()
    {
        // Given a settings file that cannot be written: a folder stands in its place
        const QString file =
            QSettings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer")).fileName();
        const QByteArray kept = [&file]() {
            QFile f(file);
            return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        }();
        QFile::remove(file);
        QVERIFY(QDir().mkpath(file));
        QSignalSpy reported(m_window->windowService().data(),
                            &VantoViewer::WindowService::settingsNotSaved);

        // When the window stores its level twice
        m_window->setVisibility(GenApi::Expert);
        m_window->setVisibility(GenApi::Beginner);

        // Then the window says so, once, naming the file
        QCOMPARE(reported.count(), 1);
        const QString error = m_window->featureStatusBar()->errorText();
        QVERIFY2(error.contains(file) && error.contains(QStringLiteral("cannot be saved")),
                 qPrintable(error));

        QVERIFY(QDir(file).removeRecursively());
        QFile restored(file);
        QVERIFY(restored.open(QIODevice::WriteOnly));
        restored.write(kept);
    }

    // Last: they leave settings behind for the next run.
    void visibilityIsKeptBetweenRuns();
    void panelLayoutIsRestoredInTheNextRun();
};

void TestMainWindow::visibilityIsKeptBetweenRuns()
{
    m_window->setVisibility(GenApi::Expert);

    stopHost();
    startHost();

    QCOMPARE(m_window->visibility(), GenApi::Expert);
    m_window->setVisibility(GenApi::Beginner);
}

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
