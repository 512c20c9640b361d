#include "apptestsupport.h"

#include "changejournal.h"
#include "journaltestsupport.h"
#include "devicespane.h"
#include "featuresetactions.h"
#include "featuresetreportdialog.h"
#include "mainwindow.h"
#include "menuservice.h"
#include "pluginmanager.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <featureset.h>
#include <featuresetjob.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <simulateddevice.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTreeView>
#include <QUndoGroup>
#include <QUndoStack>
#include <QtTest>

#include <memory>

using Backend::DeviceParameterCollection;
using Backend::FeatureSet;
using Backend::FeatureSetJob;
using VantoViewer::ChangeJournal;
using VantoViewer::MainWindow;
using VantoViewer::PluginManager;
using Origin = ChangeJournal::Origin;

namespace {

const QString kWidth = QStringLiteral("@CameraDevice/Width");
const QString kHeight = QStringLiteral("@CameraDevice/Height");
const QString kGain = QStringLiteral("@CameraDevice/Gain");
const QString kGainSelector = QStringLiteral("@CameraDevice/GainSelector");
const QString kTriggerSelector = QStringLiteral("@CameraDevice/TriggerSelector");

// Plain features, a selector the load moves, and features under every value of a selector.
const QByteArray kLoadedSet = "Nodescope feature set\nFormat: 1\n\n"
                              "Width = 800\nHeight = 600\nReverseX = true\n"
                              "GainSelector = AnalogAll\n\n"
                              "[GainSelector = All]\nGain = 3\n\n"
                              "[GainSelector = AnalogAll]\nGain = 5\n\n"
                              "[GainSelector = DigitalAll]\nGain = 1.5\n\n"
                              "[TriggerSelector = FrameStart]\nTriggerMode = On\n\n"
                              "[End]\n";

// An undo of the active camera's last step that the camera refuses: reported with `named`,
// journaled as refused, and the stack where it was.
void undoRefused(ChangeJournal& journal, const ChangeJournal::BaseInfoPtr& info,
                 const QStringList& named)
{
    QSignalSpy refused(&journal, &ChangeJournal::refused);
    QSignalSpy applied(&journal, &ChangeJournal::applied);
    const int index = journal.undoStack(info)->index();

    journal.undo();

    QTRY_COMPARE(refused.count(), 1);
    const QString message = refused.first().first().toString();
    for (const QString& text : named) {
        QVERIFY2(message.contains(text), qPrintable(message));
    }
    QCOMPARE(applied.count(), 0);
    // The stack does not claim what the camera refused
    QCOMPARE(journal.undoStack(info)->index(), index);
    QVERIFY(journal.undoAction()->isEnabled());
    const ChangeJournal::Entry entry = journal.entries(info).last();
    QCOMPARE(entry.origin, Origin::Undo);
    QVERIFY(!entry.done);
    QVERIFY(!entry.reason.isEmpty());
}

// Every saved feature of the camera, under every selector value, holds what `expected` says:
// read from the device on its thread.
void expectCameraHolds(DeviceParameterCollection* collection, const FeatureSet& expected)
{
    const FeatureSet now = FeatureSetJob::saveAndWait(collection);
    QStringList differences;
    for (const FeatureSet::Difference& d : FeatureSet::compare(expected, now)) {
        differences << QStringLiteral("%1: %2 / %3").arg(d.name, d.left, d.right);
    }
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(QStringLiteral("; "))));
}

QTreeView* visibleTree(QDockWidget* dock)
{
    const QList<QTreeView*> views = dock ? dock->findChildren<QTreeView*>() : QList<QTreeView*>();
    for (QTreeView* view : views) {
        if (view->inherits("FeatureTreeView") && view->isVisible()) {
            return view;
        }
    }
    return nullptr;
}

} // namespace

class TestChangeJournal : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<JournalCameras> m_cameras;
    std::unique_ptr<ChangeJournal> m_journal;
    ChangeJournal::BaseInfoPtr m_info; // the first camera, journaled and active

    // The window with the feature plug-in, a camera of its own open in it and its tree shown.
    struct WindowUnderTest {
        QTemporaryDir settings; // goes last
        std::unique_ptr<PluginManager> plugins;
        std::unique_ptr<MainWindow> window;
        ChangeJournal::BaseInfoPtr info;
        QTreeView* view = nullptr;
        WindowUnderTest() = default;
        WindowUnderTest(const WindowUnderTest&) = delete;
        WindowUnderTest& operator=(const WindowUnderTest&) = delete;
        ~WindowUnderTest()
        {
            window.reset();
            if (plugins) {
                plugins->unloadAll();
            }
        }
    };

    // The view stays null when the window could not be opened.
    void openWindow(WindowUnderTest& host)
    {
        QVERIFY(host.settings.isValid());
        // The window keeps its layout in the settings: not in the user's.
        isolateSettings(host.settings.path());
        const QString failure = startTestHost(m_cameras->pool, host.plugins, host.window);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
        QApplication::setActiveWindow(host.window.get());
        QVERIFY(QTest::qWaitForWindowActive(host.window.get()));
        host.window->changeJournal()->setMergeWindow(0);
        host.info = m_cameras->pool->openSimulated();
        host.window->addDevice(host.info);
        QDockWidget* all = host.window->panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID));
        QTRY_VERIFY(visibleTree(all) && visibleTree(all)->model()->rowCount() > 0);
        host.view = visibleTree(all);
    }

private Q_SLOTS:
    void init()
    {
        m_cameras = std::make_unique<JournalCameras>();
        m_journal = std::make_unique<ChangeJournal>();
        m_journal->setMergeWindow(0);
        m_info = m_cameras->open(*m_journal);
    }

    void cleanup()
    {
        m_info.reset();
        m_journal.reset();
        m_cameras.reset();
    }

    void editsAreJournaledWithOldNewAndResult()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        DeviceParameterCollection* collection = cameras.collection(info);
        QSignalSpy added(&journal, &ChangeJournal::entryAdded);

        collection->getParameter(kWidth)->setValue(qint64(800));
        collection->getParameter(kGain)->setValue(6.5);

        QTRY_COMPARE(journal.entries(info).size(), 2);
        QCOMPARE(added.count(), 2);
        const ChangeJournal::Entry width = journal.entries(info).at(0);
        QCOMPARE(width.feature, kWidth);
        QVERIFY(width.oldKnown);
        QCOMPARE(width.oldText, QStringLiteral("1920"));
        QCOMPARE(width.newText, QStringLiteral("800"));
        QVERIFY(width.done);
        QCOMPARE(width.origin, Origin::User);
        QVERIFY(width.time.isValid());
        const ChangeJournal::Entry gain = journal.entries(info).at(1);
        QCOMPARE(gain.feature, kGain);
        QCOMPARE(gain.oldText, QStringLiteral("0.00"));
        QCOMPARE(gain.newText, QStringLiteral("6.50"));
        QVERIFY(gain.done);
        // One undo step per edit
        QCOMPARE(journal.undoStack(info)->count(), 2);
    }

    void writeTheDeviceRefusesIsJournaledAsRefused()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        DeviceParameterCollection* collection = cameras.collection(info);
        cameras.device(info)->setFault(Backend::SimulatedDevice::Fault::RefuseWrites);

        collection->getParameter(kGain)->setValue(3.0);

        QTRY_COMPARE(journal.entries(info).size(), 1);
        const ChangeJournal::Entry entry = journal.entries(info).first();
        QVERIFY(!entry.done);
        QVERIFY2(!entry.reason.isEmpty(), "a refusal without its reason");
        QCOMPARE(entry.newText, QStringLiteral("3.00"));
        // Nothing to take back
        QCOMPARE(journal.undoStack(info)->count(), 0);
        QVERIFY(!journal.undoAction()->isEnabled());
    }

    void writeTheValidatorRefusesIsJournaledWithItsReason()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        DeviceParameterCollection* collection = cameras.collection(info);

        QVERIFY_EXCEPTION_THROWN(collection->getParameter(kGain)->setValue(99.0),
                                 ParameterCollection::Exception);

        QCOMPARE(journal.entries(info).size(), 1);
        const ChangeJournal::Entry entry = journal.entries(info).first();
        QVERIFY(!entry.done);
        QVERIFY2(entry.reason.contains(QStringLiteral("maximum")), qPrintable(entry.reason));
        QCOMPARE(journal.undoStack(info)->count(), 0);
    }

    void undoWritesTheOldValueBackAndRedoTheNewOne()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        DeviceParameterCollection* collection = cameras.collection(info);
        collection->getParameter(kWidth)->setValue(qint64(800));
        QTRY_COMPARE(journal.undoStack(info)->count(), 1);
        QVERIFY(journal.undoAction()->isEnabled());
        QCOMPARE(journal.undoAction()->text(), QStringLiteral("&Undo Set Width to 800"));
        QSignalSpy applied(&journal, &ChangeJournal::applied);

        // When the user undoes
        journal.undoAction()->trigger();

        // Then the device holds the old width again, and the step is undone
        QTRY_COMPARE(applied.count(), 1);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(1920));
        QCOMPARE(journal.undoStack(info)->index(), 0);
        QVERIFY(journal.redoAction()->isEnabled());
        // journaled as an undo, not as a step of its own
        QCOMPARE(journal.entries(info).size(), 2);
        QCOMPARE(journal.entries(info).last().origin, Origin::Undo);
        QVERIFY(journal.entries(info).last().done);
        QCOMPARE(journal.entries(info).last().newText, QStringLiteral("1920"));
        QCOMPARE(journal.undoStack(info)->count(), 1);

        // When the user redoes
        journal.redoAction()->trigger();
        QTRY_COMPARE(applied.count(), 2);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(800));
        QCOMPARE(journal.undoStack(info)->index(), 1);
        QCOMPARE(journal.entries(info).last().origin, Origin::Redo);
        QCOMPARE(journal.undoStack(info)->count(), 1);
    }

    void refusedUndoIsReportedAndLeavesTheStep()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        DeviceParameterCollection* collection = cameras.collection(info);
        collection->getParameter(kGain)->setValue(4.0);
        QTRY_COMPARE(journal.undoStack(info)->count(), 1);
        cameras.device(info)->setFault(Backend::SimulatedDevice::Fault::RefuseWrites);
        QSignalSpy applied(&journal, &ChangeJournal::applied);

        undoRefused(journal, info, {QStringLiteral("Gain")});
        if (QTest::currentTestFailed()) {
            return;
        }
        cameras.device(info)->setFault(Backend::SimulatedDevice::Fault::None);
        QCOMPARE(cameras.readBack(info, kGain).toDouble(), 4.0);

        // Once the camera takes writes again, the same step undoes
        journal.undo();
        QTRY_COMPARE(applied.count(), 1);
        QCOMPARE(cameras.readBack(info, kGain).toDouble(), 0.0);
    }

    void groupIsOneUndoStep()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        DeviceParameterCollection* collection = cameras.collection(info);
        // A feature set's loader writes with the batch origin and hands over what it did
        collection->setWriteOrigin(Origin::Batch);
        collection->getParameter(kWidth)->setValue(qint64(640));
        collection->getParameter(kHeight)->setValue(qint64(480));
        collection->setWriteOrigin(Origin::User);
        collection->waitForDevice();
        QTRY_COMPARE(journal.entries(info).size(), 2);
        QCOMPARE(journal.entries(info).first().origin, Origin::Batch);
        QCOMPARE(journal.undoStack(info)->count(), 0);
        journal.recordGroup(
            info, QStringLiteral("Load Features"),
            {{kWidth, qint64(1920), QStringLiteral("1920"), qint64(640), QStringLiteral("640")},
             {kHeight, qint64(1200), QStringLiteral("1200"), qint64(480), QStringLiteral("480")}});
        QCOMPARE(journal.undoStack(info)->count(), 1);
        QCOMPARE(journal.entries(info).size(), 3);
        QCOMPARE(journal.entries(info).last().groupSize, 2);
        QSignalSpy applied(&journal, &ChangeJournal::applied);

        journal.undo();

        QTRY_COMPARE(applied.count(), 1);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(1920));
        QCOMPARE(cameras.readBack(info, kHeight).toLongLong(), qint64(1200));
        QCOMPARE(journal.undoStack(info)->index(), 0);

        journal.redo();
        QTRY_COMPARE(applied.count(), 2);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(640));
        QCOMPARE(cameras.readBack(info, kHeight).toLongLong(), qint64(480));
    }

    void editsOfOneFeatureInQuickSuccessionAreOneStep()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        // Wide enough that the test never depends on the machine's speed
        journal.setMergeWindow(60 * 60 * 1000);
        DeviceParameterCollection* collection = cameras.collection(info);
        for (double gain : {1.0, 2.0, 3.0, 4.0}) {
            collection->getParameter(kGain)->setValue(gain);
        }
        collection->getParameter(kWidth)->setValue(qint64(320));
        QTRY_COMPARE(journal.undoStack(info)->count(), 2);
        QCOMPARE(journal.entries(info).size(), 2);
        QCOMPARE(journal.entries(info).first().oldText, QStringLiteral("0.00"));
        QCOMPARE(journal.entries(info).first().newText, QStringLiteral("4.00"));
        QSignalSpy applied(&journal, &ChangeJournal::applied);

        journal.undo();
        QTRY_COMPARE(applied.count(), 1);
        journal.undo();
        QTRY_COMPARE(applied.count(), 2);

        QCOMPARE(cameras.readBack(info, kGain).toDouble(), 0.0);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(1920));
    }

    void reconnectedCameraKeepsItsJournalAndSteps()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        cameras.collection(m_info)->getParameter(kGain)->setValue(9.0);
        QTRY_COMPARE(journal.undoStack(m_info)->count(), 1);

        // When the camera comes back as a new one (here: another built-in camera)
        const ChangeJournal::BaseInfoPtr fresh = cameras.pool->openSimulated();
        journal.replaceCamera(m_info, fresh, cameras.pool->getParameterCollection(fresh));

        // Then its journal and its step go on with it, and undo writes to the new one
        QCOMPARE(journal.activeCamera(), fresh.data());
        QCOMPARE(journal.entries(fresh).size(), 1);
        QVERIFY(!journal.undoStack(m_info));
        QCOMPARE(journal.undoStack(fresh)->count(), 1);
        // (the new camera came back with the value, as a camera that kept it would)
        cameras.collection(fresh)->setWriteOrigin(Origin::Batch);
        cameras.collection(fresh)->getParameter(kGain)->setValue(9.0);
        cameras.collection(fresh)->setWriteOrigin(Origin::User);
        QTRY_COMPARE(journal.entries(fresh).size(), 2);
        QSignalSpy applied(&journal, &ChangeJournal::applied);
        journal.undo();
        QTRY_COMPARE(applied.count(), 1);
        QCOMPARE(cameras.readBack(fresh, kGain).toDouble(), 0.0);
        QCOMPARE(journal.entries(fresh).last().origin, Origin::Undo);
    }

    void stackFollowsTheActiveCamera()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto first = m_info;
        const auto second = cameras.open(journal);
        cameras.collection(first)->getParameter(kGain)->setValue(5.0);
        cameras.collection(second)->getParameter(kGain)->setValue(7.0);
        QTRY_COMPARE(journal.undoStack(first)->count(), 1);
        QTRY_COMPARE(journal.undoStack(second)->count(), 1);
        QCOMPARE(journal.undoGroup()->activeStack(), journal.undoStack(second));
        QSignalSpy applied(&journal, &ChangeJournal::applied);

        // When the first camera becomes the active one and the user undoes
        journal.setActiveCamera(first);
        QCOMPARE(journal.undoGroup()->activeStack(), journal.undoStack(first));
        QCOMPARE(journal.activeEntries().first().newText, QStringLiteral("5.00"));
        journal.undoAction()->trigger();
        QTRY_COMPARE(applied.count(), 1);

        // Then only the first camera's edit is taken back
        QCOMPARE(cameras.readBack(first, kGain).toDouble(), 0.0);
        QCOMPARE(cameras.readBack(second, kGain).toDouble(), 7.0);
        QCOMPARE(journal.undoStack(second)->index(), 1);

        // A closed camera takes its stack along
        journal.removeCamera(first);
        QCOMPARE(journal.activeCamera(), nullptr);
        QVERIFY(!journal.undoGroup()->activeStack());
        QVERIFY(!journal.undoAction()->isEnabled());
    }

    void undoThroughTheTreeWithTheKeyboard()
    {
        WindowUnderTest host;
        openWindow(host);
        QVERIFY(host.view);
        const JournalCameras& cameras = *m_cameras;
        MainWindow* window = host.window.get();
        ChangeJournal* journal = window->changeJournal();
        const auto& info = host.info;
        QTreeView* view = host.view;
        const QModelIndex width = findFeature(view->model(), QModelIndex(), kWidth);
        QVERIFY(width.isValid());
        view->scrollTo(width);
        const QModelIndex value = width.sibling(width.row(), 1);

        // Given the user typed a width into the tree's editor
        view->setCurrentIndex(value);
        view->edit(value);
        QLineEdit* line = nullptr;
        QTRY_VERIFY((line = qobject_cast<QLineEdit*>(QApplication::focusWidget())) ||
                    (view->indexWidget(value) &&
                     (line = view->indexWidget(value)->findChild<QLineEdit*>())));
        line->selectAll();
        QTest::keyClicks(line, QStringLiteral("800"));

        // Ctrl+Z in the editor is the editor's own undo: the text goes back, nothing is written
        const QString typed = line->text();
        QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY2(line->text() != typed, qPrintable(line->text()));
        QCOMPARE(journal->undoStack(info)->count(), 0);
        QCOMPARE(journal->entries(info).size(), 0);

        line->selectAll();
        QTest::keyClicks(line, QStringLiteral("800"));
        QTest::keyClick(line, Qt::Key_Return);
        QTRY_COMPARE(journal->undoStack(info)->count(), 1);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(800));
        QVERIFY(window->menuService()
                    ->menu(Core::CId(VantoViewer::MenuService::EDIT_MENU))
                    ->actions()
                    .contains(journal->undoAction()));

        // When the tree has the focus and the user presses Ctrl+Z, then Ctrl+Shift+Z
        view->setFocus();
        QTRY_VERIFY(view->hasFocus());
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(journal->undoStack(info)->index(), 0);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(1920));
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_COMPARE(journal->undoStack(info)->index(), 1);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(800));

        // The Changes panel lists the edit, its undo and its redo
        window->changesDock()->toggleViewAction()->trigger();
        QVERIFY(window->changesDock()->isVisible());
        auto* changes =
            window->changesDock()->findChild<QAbstractItemView*>(QStringLiteral("changesView"));
        QVERIFY(changes);
        QCOMPARE(changes->model()->rowCount(), 3);

        // It follows the active camera, and so do the Edit menu's entries
        const auto second = cameras.pool->openSimulated();
        window->addDevice(second);
        QCOMPARE(changes->model()->rowCount(), 0);
        QVERIFY(!journal->undoAction()->isEnabled());
        window->devicesPane()->setActiveDevice(info);
        QCOMPARE(changes->model()->rowCount(), 3);
        QVERIFY(journal->undoAction()->isEnabled());
    }
    void loadedFeatureSetIsOneStepThatUndoesEveryValue()
    {
        WindowUnderTest host;
        openWindow(host);
        QVERIFY(host.view);
        const auto& info = host.info;
        DeviceParameterCollection* collection = m_cameras->collection(info);
        ChangeJournal* journal = host.window->changeJournal();
        const JournalCameras& cameras = *m_cameras;
        const QString file = host.settings.filePath(QStringLiteral("lab.txt"));

        // Given selectors the user left away from where the file puts them
        collection->getParameter(kGainSelector)->setValue(QStringLiteral("DigitalAll"));
        collection->getParameter(kTriggerSelector)->setValue(QStringLiteral("AcquisitionStart"));
        QTRY_COMPARE(journal->undoStack(info)->count(), 2);
        const FeatureSet before = FeatureSetJob::saveAndWait(collection);
        QVERIFY(before.lines.size() > 100);

        // When a feature set is loaded through the Camera menu's code path
        {
            QFile out(file);
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write(kLoadedSet);
        }
        QSignalSpy loaded(host.window->featureSetActions(),
                          &VantoViewer::FeatureSetActions::featureSetLoaded);
        host.window->featureSetActions()->loadFrom(file);
        QVERIFY(loaded.wait(10000));
        const auto report = loaded.first().at(1).value<Backend::FeatureSetTransfer::LoadReport>();
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.failures.value(0).message));
        if (host.window->featureSetActions()->reportDialog()) {
            host.window->featureSetActions()->reportDialog()->close();
        }
        const FeatureSet after = FeatureSetJob::saveAndWait(collection);
        QVERIFY(!FeatureSet::compare(before, after).isEmpty());
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(800));

        // Then it is one entry and one step
        QCOMPARE(journal->undoStack(info)->count(), 3);
        QCOMPARE(journal->undoAction()->text(), QStringLiteral("&Undo Load lab.txt"));
        const ChangeJournal::Entry entry = journal->entries(info).last();
        QCOMPARE(entry.origin, Origin::Batch);
        QCOMPARE(entry.feature, QStringLiteral("Load lab.txt"));
        // Width, Height, ReverseX, GainSelector, Gain under three values, TriggerMode
        QCOMPARE(entry.groupSize, 8);

        // When the user presses Ctrl+Z in the tree
        QApplication::setActiveWindow(host.window.get());
        QVERIFY(QTest::qWaitForWindowActive(host.window.get()));
        host.view->setFocus();
        QTRY_VERIFY(host.view->hasFocus());
        QSignalSpy applied(journal, &ChangeJournal::applied);
        QTest::keyClick(host.view, Qt::Key_Z, Qt::ControlModifier);

        // Then every feature is back as it was, under every selector value, and the selectors
        // too, as the device reads them
        QTRY_COMPARE(journal->undoStack(info)->index(), 2);
        QCOMPARE(applied.count(), 1);
        expectCameraHolds(collection, before);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(1920));
        QCOMPARE(cameras.readBack(info, kGainSelector).toString(), QStringLiteral("DigitalAll"));
        QCOMPARE(journal->entries(info).last().origin, Origin::Undo);
        QVERIFY(journal->entries(info).last().done);

        // And Ctrl+Shift+Z applies the load again
        QTest::keyClick(host.view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_COMPARE(journal->undoStack(info)->index(), 3);
        QCOMPARE(applied.count(), 2);
        expectCameraHolds(collection, after);
        QCOMPARE(cameras.readBack(info, kWidth).toLongLong(), qint64(800));
        QCOMPARE(journal->entries(info).last().origin, Origin::Redo);
    }

    void refusedUndoOfALoadIsReportedAndLeavesTheStep()
    {
        const JournalCameras& cameras = *m_cameras;
        ChangeJournal& journal = *m_journal;
        const auto& info = m_info;
        DeviceParameterCollection* collection = cameras.collection(info);
        const FeatureSet before = FeatureSetJob::saveAndWait(collection);
        const auto report = FeatureSetJob::loadAndWait(
            collection, FeatureSet::parse(kLoadedSet, QStringLiteral("lab.txt")));
        QVERIFY(report.failures.isEmpty());
        journal.recordLoad(info, QStringLiteral("lab.txt"), report);
        QCOMPARE(journal.undoStack(info)->count(), 1);
        cameras.device(info)->setFault(Backend::SimulatedDevice::Fault::RefuseWrites);
        QSignalSpy applied(&journal, &ChangeJournal::applied);

        // The load's values go back on the device thread: the refusal comes later
        undoRefused(journal, info, {QStringLiteral("Load lab.txt"), QStringLiteral("Width")});
        if (QTest::currentTestFailed()) {
            return;
        }

        // Once the camera takes writes again, the same step undoes
        cameras.device(info)->setFault(Backend::SimulatedDevice::Fault::None);
        journal.undo();
        QTRY_COMPARE(applied.count(), 1);
        QCOMPARE(journal.undoStack(info)->index(), 0);
        expectCameraHolds(collection, before);
    }
};

QTEST_MAIN(TestChangeJournal)
#include "tst_changejournal.moc"
