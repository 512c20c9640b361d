#include "apptestsupport.h"

#include "changejournal.h"
#include "changesmodel.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <parametercollection/iparameter.h>
#include <simulateddevice.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
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
    QTemporaryDir m_settingsDir;
    QSharedPointer<Backend::CameraPool> m_pool;

    DeviceParameterCollection* collectionOf(const ChangeJournal::BaseInfoPtr& info) const
    {
        return qobject_cast<DeviceParameterCollection*>(
            m_pool->getParameterCollection(info).data());
    }

    ChangeJournal::BaseInfoPtr openCamera(ChangeJournal& journal)
    {
        const ChangeJournal::BaseInfoPtr info = m_pool->openSimulated();
        journal.addCamera(info, m_pool->getParameterCollection(info));
        journal.setActiveCamera(info);
        return info;
    }

    static QString cell(const ChangesModel& model, int row, int column)
    {
        return model.index(row, column).data().toString();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_settingsDir.isValid());
        isolateSettings(m_settingsDir.path());
    }

    void init() { m_pool = QSharedPointer<Backend::CameraPool>::create(); }

    void cleanup()
    {
        m_pool->closeAll();
        m_pool.reset();
    }

    void showsTheActiveCamerasWritesAsTheyComeIn()
    {
        ChangeJournal journal;
        journal.setMergeWindow(0);
        ChangesModel model(&journal);
        QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto info = openCamera(journal);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 5);
        QCOMPARE(model.headerData(ChangesModel::OldValueColumn, Qt::Horizontal).toString(),
                 QStringLiteral("Old Value"));

        collectionOf(info)->getParameter(kGain)->setValue(2.5);
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
        Backend::SimulatedDevice* device = nullptr;
        collectionOf(info)->runOnDeviceThread(
            [&device](Backend::DeviceWorker& w) { device = w.simulatedDevice(0); });
        device->setFault(Backend::SimulatedDevice::Fault::RefuseWrites);
        collectionOf(info)->getParameter(kWidth)->setValue(qint64(640));
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
        ChangeJournal journal;
        journal.setMergeWindow(60 * 60 * 1000);
        ChangesModel model(&journal);
        QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto info = openCamera(journal);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        collectionOf(info)->getParameter(kGain)->setValue(1.0);
        collectionOf(info)->getParameter(kGain)->setValue(2.0);
        QTRY_COMPARE(cell(model, 0, ChangesModel::NewValueColumn), QStringLiteral("2.00"));
        QCOMPARE(model.rowCount(), 1);
        QVERIFY(changed.count() >= 1);
    }

    void followsTheActiveCameraAndShowsGroups()
    {
        ChangeJournal journal;
        journal.setMergeWindow(0);
        ChangesModel model(&journal);
        QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto first = openCamera(journal);
        collectionOf(first)->getParameter(kGain)->setValue(3.0);
        QTRY_COMPARE(model.rowCount(), 1);
        const auto second = openCamera(journal);
        QCOMPARE(model.rowCount(), 0);
        journal.recordGroup(second, QStringLiteral("Load Features"),
                            {{kGain, 0.0, QStringLiteral("0.00"), 1.0, QStringLiteral("1.00")}});
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(cell(model, 0, ChangesModel::FeatureColumn), QStringLiteral("Load Features"));
        QCOMPARE(cell(model, 0, ChangesModel::NewValueColumn), QStringLiteral("1 feature(s)"));
        QCOMPARE(cell(model, 0, ChangesModel::ResultColumn), QStringLiteral("Applied as one step"));

        // Writes of the camera not shown do not show
        collectionOf(first)->getParameter(kGain)->setValue(4.0);
        collectionOf(first)->waitForDevice();
        QCOMPARE(model.rowCount(), 1);

        journal.setActiveCamera(first);
        QCOMPARE(model.rowCount(), 2);
        journal.removeCamera(first);
        QCOMPARE(model.rowCount(), 0);
    }
};

QTEST_MAIN(TestChangesModel)
#include "tst_changesmodel.moc"
