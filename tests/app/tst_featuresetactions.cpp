#include "featuresetactions.h"
#include "featuresetcomparedialog.h"
#include "featuresetcomparemodel.h"
#include "featuresetreportdialog.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <featuresetjob.h>

#include <featuretree/ifeaturetreecontrolservice.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QSignalSpy>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

using VantoViewer::FeatureSetActions;

namespace {

// The panels' side of the control service is the plug-in's; here only its signal is heard.
class ControlService : public Plugin::FeatureTree::IFeatureTreeControlService {
public:
    void registerDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>) override {}
    void unregisterDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>) override {}
    void setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>) override {}
    void refreshFeatureTree() override {}
    void setVisibility(GenApi::EVisibility) override {}
};

} // namespace

class tst_FeatureSetActions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void shouldOfferNothingWithoutACamera();
    void shouldShowEveryLineNotAppliedInTheReport();
    void shouldRefuseABrokenFileWithItsReason();
    void shouldCompareTwoCamerasAndSelectTheChosenFeature();
    void shouldSaveAFileThatComparesEqual();

private:
    void setValue(const QSharedPointer<Backend::CameraInfo>& camera, const QString& feature,
                  const QVariant& value);

    QTemporaryDir m_dir;
    QSharedPointer<Backend::CameraPool> m_pool;
    std::unique_ptr<QWidget> m_window;
    FeatureSetActions* m_actions = nullptr;
    QSharedPointer<Backend::CameraInfo> m_first;
    QSharedPointer<Backend::CameraInfo> m_second;
};

void tst_FeatureSetActions::init()
{
    m_pool = QSharedPointer<Backend::CameraPool>::create();
    m_first = m_pool->openSimulated();
    m_second = m_pool->openSimulated();
    m_window = std::make_unique<QWidget>();
    m_actions = new FeatureSetActions(
        m_pool,
        [this]() {
            return QList<FeatureSetActions::BaseInfoPtr>{m_first, m_second};
        },
        m_window.get());
    m_actions->setCamera(m_first);
}

void tst_FeatureSetActions::cleanup()
{
    m_window.reset();
    m_pool.reset();
}

void tst_FeatureSetActions::setValue(const QSharedPointer<Backend::CameraInfo>& camera,
                                     const QString& feature, const QVariant& value)
{
    const auto collection = m_pool->getParameterCollection(camera);
    collection->getParameter(QStringLiteral("@CameraDevice/") + feature)->setValue(value);
    static_cast<Backend::DeviceParameterCollection*>(collection.data())->waitForDevice();
}

void tst_FeatureSetActions::shouldOfferNothingWithoutACamera()
{
    QVERIFY(m_actions->loadAction()->isEnabled());
    m_actions->setCamera({});
    QVERIFY(!m_actions->saveAction()->isEnabled());
    QVERIFY(!m_actions->loadAction()->isEnabled());
    QVERIFY(!m_actions->compareAction()->isEnabled());
}

void tst_FeatureSetActions::shouldShowEveryLineNotAppliedInTheReport()
{
    // Given a file with one good line and two bad ones
    const QString file = m_dir.filePath(QStringLiteral("mixed.txt"));
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write("Nodescope feature set\nFormat: 1\n\nWidth = 800\nNoSuchFeature = 1\n"
                  "ExposureTime = -5\n[End]\n");
    }
    QSignalSpy loaded(m_actions, &FeatureSetActions::featureSetLoaded);
    // When it is loaded from the menu's code path
    m_actions->loadFrom(file);
    QVERIFY(!m_actions->loadAction()->isEnabled()); // one transfer at a time
    QVERIFY(loaded.wait(10000));
    // Then the report lists both failures with their reasons
    QVERIFY(m_actions->reportDialog());
    const QTableWidget* table = m_actions->reportDialog()->failureTable();
    QCOMPARE(table->rowCount(), 2);
    QCOMPARE(table->item(0, 1)->text(), QStringLiteral("NoSuchFeature"));
    QCOMPARE(table->item(0, 3)->text(), QStringLiteral("Unknown feature"));
    QCOMPARE(table->item(1, 1)->text(), QStringLiteral("ExposureTime"));
    QCOMPARE(table->item(1, 3)->text(), QStringLiteral("Out of range"));
    QVERIFY2(m_actions->reportDialog()->summary().contains(QStringLiteral("2 line")),
             qPrintable(m_actions->reportDialog()->summary()));
    // And the change it made is handed on, with the value before, for an undo
    const auto report = loaded.at(0).at(1).value<Backend::FeatureSetTransfer::LoadReport>();
    QCOMPARE(report.applied.size(), 1);
    QCOMPARE(report.applied.at(0).fullName, QStringLiteral("@CameraDevice/Width"));
    QCOMPARE(report.applied.at(0).before, QStringLiteral("1920"));
    QCOMPARE(report.applied.at(0).written, QStringLiteral("800"));
    QVERIFY(m_actions->loadAction()->isEnabled());
}

void tst_FeatureSetActions::shouldRefuseABrokenFileWithItsReason()
{
    const QString file = m_dir.filePath(QStringLiteral("cut.txt"));
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write("Nodescope feature set\nFormat: 1\n\nWidth = 8");
    }
    QSignalSpy failed(m_actions, &FeatureSetActions::failed);
    m_actions->loadFrom(file);
    QCOMPARE(failed.count(), 1);
    QVERIFY2(failed.at(0).at(0).toString().contains(QStringLiteral("truncated")),
             qPrintable(failed.at(0).at(0).toString()));
    QVERIFY(!m_actions->reportDialog());
}

void tst_FeatureSetActions::shouldCompareTwoCamerasAndSelectTheChosenFeature()
{
    // Given two cameras that differ in one selected gain
    setValue(m_second, QStringLiteral("GainSelector"), QStringLiteral("DigitalAll"));
    setValue(m_second, QStringLiteral("Gain"), 6.0);
    setValue(m_second, QStringLiteral("GainSelector"), QStringLiteral("All"));
    ControlService control;
    QSignalSpy selected(
        &control, &Plugin::FeatureTree::IFeatureTreeControlService::featureSelectionRequested);
    m_actions->setControlService(&control);
    QSignalSpy compared(m_actions, &FeatureSetActions::compared);
    // When they are compared
    m_actions->compareWithCamera(m_second);
    QVERIFY(compared.wait(10000));
    // Then the table holds that one difference
    auto* dialog = m_actions->compareDialog();
    QVERIFY(dialog);
    auto* model = dialog->model();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 0).data().toString(),
             QStringLiteral("Gain [GainSelector = DigitalAll]"));
    QCOMPARE(model->index(0, 2).data().toString(), QStringLiteral("6"));
    // And choosing its row selects the feature of the first camera in the tree
    dialog->view()->selectRow(0);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<QSharedPointer<Plugin::CameraPool::IBaseInfo>>(),
             QSharedPointer<Plugin::CameraPool::IBaseInfo>(m_first));
    QCOMPARE(selected.at(0).at(1).toString(), QStringLiteral("@CameraDevice/Gain"));
}

void tst_FeatureSetActions::shouldSaveAFileThatComparesEqual()
{
    const QString file = m_dir.filePath(QStringLiteral("saved.txt"));
    QSignalSpy message(m_actions, &FeatureSetActions::message);
    m_actions->saveTo(file);
    QVERIFY(message.wait(10000));
    QSignalSpy compared(m_actions, &FeatureSetActions::compared);
    m_actions->compareWithFile(file);
    QVERIFY(compared.wait(10000));
    QCOMPARE(m_actions->compareDialog()->model()->rowCount(), 0);
}

QTEST_MAIN(tst_FeatureSetActions)
#include "tst_featuresetactions.moc"
