#include "changejournal.h"
#include "changesmodel.h"
#include "journaltestsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <parametercollection/iparameter.h>
#include <simulateddevice.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

using Backend::DeviceParameterCollection;
using VantoViewer::ChangeJournal;
using VantoViewer::ChangesModel;

namespace {
const QString kGain = QStringLiteral("@CameraDevice/Gain");
const QString kWidth = QStringLiteral("@CameraDevice/Width");
} // namespace

class TestChangesModel : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<JournalCameras> m_cameras;
    std::unique_ptr<ChangeJournal> m_journal;
    std::unique_ptr<ChangesModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;

    static QString cell(const ChangesModel& model, int row, int column)
    {
        return model.index(row, column).data().toString();
    }

private Q_SLOTS:
    void init()
    {
        m_cameras = std::make_unique<JournalCameras>();
        m_journal = std::make_unique<ChangeJournal>();
        m_journal->setMergeWindow(0);
        m_model = std::make_unique<ChangesModel>(m_journal.get());
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        m_journal.reset();
        m_cameras.reset();
    }

    void showsTheActiveCamerasWritesAsTheyComeIn()
    {
        ChangeJournal& journal = *m_journal;
        const ChangesModel& model = *m_model;
        const auto info = m_cameras->open(journal);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 5);
        QCOMPARE(model.headerData(ChangesModel::OldValueColumn, Qt::Horizontal).toString(),
                 QStringLiteral("Old Value"));

        m_cameras->collection(info)->getParameter(kGain)->setValue(2.5);
        QTRY_COMPARE(model.rowCount(), 1);
        QCOMPARE(cell(model, 0, ChangesModel::FeatureColumn), QStringLiteral("Gain"));
        QCOMPARE(model.index(0, ChangesModel::FeatureColumn).data(Qt::ToolTipRole).toString(),
                 kGain);
        QCOMPARE(cell(model, 0, ChangesModel::OldValueColumn), QStringLiteral("0.00"));
        QCOMPARE(cell(model, 0, ChangesModel::NewValueColumn), QStringLiteral("2.50"));
        QCOMPARE(cell(model, 0, ChangesModel::ResultColumn), QStringLiteral("Done"));
        QVERIFY(!cell(model, 0, ChangesModel::TimeColumn).isEmpty());
        QVERIFY(!model.index(0, 0).data(ChangesModel::REFUSED_ROLE).toBool());

        // A refusal shows with the device's reason
        Backend::SimulatedDevice* device = m_cameras->device(info);
        device->setFault(Backend::SimulatedDevice::Fault::RefuseWrites);
        m_cameras->collection(info)->getParameter(kWidth)->setValue(qint64(640));
        QTRY_COMPARE(model.rowCount(), 2);
        QVERIFY(cell(model, 1, ChangesModel::ResultColumn).startsWith(QStringLiteral("Refused: ")));
        QVERIFY(cell(model, 1, ChangesModel::ResultColumn).size() >
                QStringLiteral("Refused: ").size());
        QVERIFY(model.index(1, 0).data(ChangesModel::REFUSED_ROLE).toBool());
        device->setFault(Backend::SimulatedDevice::Fault::None);

        // The undo of the gain shows as such
        QSignalSpy applied(&journal, &ChangeJournal::applied);
        journal.undo();
        QTRY_COMPARE(applied.count(), 1);
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(cell(model, 2, ChangesModel::ResultColumn), QStringLiteral("Undone"));
        QCOMPARE(cell(model, 2, ChangesModel::NewValueColumn), QStringLiteral("0.00"));
    }

    void mergedEditUpdatesItsRow()
    {
        ChangeJournal& journal = *m_journal;
        const ChangesModel& model = *m_model;
        journal.setMergeWindow(60 * 60 * 1000);
        const auto info = m_cameras->open(journal);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        m_cameras->collection(info)->getParameter(kGain)->setValue(1.0);
        m_cameras->collection(info)->getParameter(kGain)->setValue(2.0);
        QTRY_COMPARE(cell(model, 0, ChangesModel::NewValueColumn), QStringLiteral("2.00"));
        QCOMPARE(model.rowCount(), 1);
        QVERIFY(changed.count() >= 1);
    }

    void followsTheActiveCameraAndShowsGroups()
    {
        ChangeJournal& journal = *m_journal;
        const ChangesModel& model = *m_model;
        const auto first = m_cameras->open(journal);
        m_cameras->collection(first)->getParameter(kGain)->setValue(3.0);
        QTRY_COMPARE(model.rowCount(), 1);
        const auto second = m_cameras->open(journal);
        QCOMPARE(model.rowCount(), 0);
        journal.recordGroup(second, QStringLiteral("Load Features"),
                            {{kGain, 0.0, QStringLiteral("0.00"), 1.0, QStringLiteral("1.00")}});
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(cell(model, 0, ChangesModel::FeatureColumn), QStringLiteral("Load Features"));
        QCOMPARE(cell(model, 0, ChangesModel::NewValueColumn), QStringLiteral("1 feature(s)"));
        QCOMPARE(cell(model, 0, ChangesModel::ResultColumn), QStringLiteral("Applied as one step"));

        // Writes of the camera not shown do not show
        m_cameras->collection(first)->getParameter(kGain)->setValue(4.0);
        m_cameras->collection(first)->waitForDevice();
        QCOMPARE(model.rowCount(), 1);

        journal.setActiveCamera(first);
        QCOMPARE(model.rowCount(), 2);
        journal.removeCamera(first);
        QCOMPARE(model.rowCount(), 0);
    }

    void showsTheUndoOfALoadAsUndone()
    {
        ChangeJournal& journal = *m_journal;
        const ChangesModel& model = *m_model;
        const auto info = m_cameras->open(journal);
        Backend::FeatureSetTransfer::LoadReport report;
        report.applied = {{kGain, {}, QStringLiteral("0"), QStringLiteral("3")}};
        m_cameras->collection(info)->getParameter(kGain)->setValue(3.0);
        m_cameras->collection(info)->waitForDevice();
        QTRY_COMPARE(model.rowCount(), 1);
        journal.recordLoad(info, QStringLiteral("lab.txt"), report);
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(cell(model, 1, ChangesModel::FeatureColumn), QStringLiteral("Load lab.txt"));
        QCOMPARE(cell(model, 1, ChangesModel::ResultColumn), QStringLiteral("Applied as one step"));

        journal.undo();

        QTRY_COMPARE(model.rowCount(), 3);
        QCOMPARE(cell(model, 2, ChangesModel::FeatureColumn), QStringLiteral("Load lab.txt"));
        QCOMPARE(cell(model, 2, ChangesModel::NewValueColumn), QStringLiteral("1 feature(s)"));
        QCOMPARE(cell(model, 2, ChangesModel::ResultColumn), QStringLiteral("Undone"));
    }
};

QTEST_MAIN(TestChangesModel)
#include "tst_changesmodel.moc"
