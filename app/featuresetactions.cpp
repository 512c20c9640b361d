#include "featuresetactions.h"

#include "cameraname.h"
#include "featuresetcomparedialog.h"
#include "featuresetreportdialog.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <featuresetjob.h>

#include <camerapool/ibaseinfo.h>
#include <featuretree/featuretreemetatypes.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <parametercollection/exception.h>

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QProgressDialog>
#include <QSaveFile>

using Backend::FeatureSet;
using Backend::FeatureSetJob;

namespace VantoViewer {

namespace {
// A load of more lines than a glance takes shows its progress after this long.
constexpr int PROGRESS_DELAY_MS = 400;
const QString kFileFilter = QStringLiteral("*.txt");
} // namespace

FeatureSetActions::FeatureSetActions(QSharedPointer<Backend::CameraPool> pool, CameraList cameras,
                                     QWidget* window)
    : QObject(window), m_pool(std::move(pool)), m_cameras(std::move(cameras)), m_window(window),
      m_save(new QAction(tr("Save Features..."), this)),
      m_load(new QAction(tr("Load Features..."), this)),
      m_compare(new QAction(tr("Compare Features..."), this))
{
    m_save->setStatusTip(tr("Saves the camera's features to a file"));
    m_load->setStatusTip(tr("Writes the features of a file to the camera"));
    m_compare->setStatusTip(tr("Lists the features in which the camera differs from a file or "
                               "another camera"));
    Plugin::FeatureTree::registerFeatureTreeMetaTypes();
    qRegisterMetaType<Backend::FeatureSetTransfer::LoadReport>();
    connect(m_save, &QAction::triggered, this, &FeatureSetActions::askAndSave);
    connect(m_load, &QAction::triggered, this, &FeatureSetActions::askAndLoad);
    connect(m_compare, &QAction::triggered, this, &FeatureSetActions::askAndCompare);
    updateActions();
}

FeatureSetActions::~FeatureSetActions() = default;

FeatureSetReportDialog* FeatureSetActions::reportDialog() const
{
    return m_report.data();
}

FeatureSetCompareDialog* FeatureSetActions::compareDialog() const
{
    return m_compareDialog.data();
}

void FeatureSetActions::setCamera(const BaseInfoPtr& info)
{
    m_camera = info;
    updateActions();
}

void FeatureSetActions::setControlService(Plugin::FeatureTree::IFeatureTreeControlService* service)
{
    m_controlService = service;
}

void FeatureSetActions::updateActions()
{
    const bool ready = m_camera && m_busy == 0;
    for (QAction* action : {m_save, m_load, m_compare}) {
        action->setEnabled(ready);
    }
}

void FeatureSetActions::snapshot(const BaseInfoPtr& info,
                                 const std::function<void(const FeatureSet&)>& done)
{
    auto* collection = qobject_cast<Backend::DeviceParameterCollection*>(
        m_pool->getParameterCollection(info).data());
    if (collection == nullptr) {
        Q_EMIT failed(tr("%1 has no features to save").arg(CameraName::of(*info)));
        return;
    }
    auto* job = new FeatureSetJob(collection, this);
    ++m_busy;
    updateActions();
    const QString name = CameraName::of(*info);
    connect(job, &FeatureSetJob::saved, this, [this, job, done](const FeatureSet& set) {
        finish(job);
        done(set);
    });
    connect(job, &FeatureSetJob::failed, this, [this, job, name](const QString& reason) {
        finish(job);
        Q_EMIT failed(tr("Cannot read the features of %1: %2").arg(name, reason));
    });
    job->save();
}

void FeatureSetActions::askAndSave()
{
    const QString file =
        QFileDialog::getSaveFileName(m_window, tr("Save Features"), QString(), kFileFilter);
    if (!file.isEmpty()) {
        saveTo(file);
    }
}

void FeatureSetActions::finish(QObject* job)
{
    job->deleteLater();
    --m_busy;
    updateActions();
}

void FeatureSetActions::saveTo(const QString& fileName)
{
    if (!m_camera) {
        return;
    }
    snapshot(m_camera, [this, fileName](const FeatureSet& set) {
        QSaveFile file(fileName);
        if (!file.open(QIODevice::WriteOnly) || file.write(set.toText()) < 0 || !file.commit()) {
            Q_EMIT failed(tr("Cannot write %1: %2").arg(fileName, file.errorString()));
            return;
        }
        Q_EMIT message(tr("%n feature value(s) saved to %1", nullptr, set.lines.size())
                           .arg(QFileInfo(fileName).fileName()));
    });
}

void FeatureSetActions::askAndLoad()
{
    const QString file =
        QFileDialog::getOpenFileName(m_window, tr("Load Features"), QString(), kFileFilter);
    if (!file.isEmpty()) {
        loadFrom(file);
    }
}

void FeatureSetActions::loadFrom(const QString& fileName)
{
    auto* collection = m_camera ? qobject_cast<Backend::DeviceParameterCollection*>(
                                      m_pool->getParameterCollection(m_camera).data())
                                : nullptr;
    if (collection == nullptr) {
        return;
    }
    FeatureSet set;
    try {
        // A broken file is refused before anything is written.
        set = FeatureSet::read(fileName);
    } catch (const ParameterCollection::Exception& e) {
        Q_EMIT failed(tr("Cannot load %1: %2").arg(fileName, e.message()));
        return;
    }
    auto* job = new FeatureSetJob(collection, this);
    auto* progress =
        new QProgressDialog(tr("Writing the features of %1...").arg(QFileInfo(fileName).fileName()),
                            tr("Cancel"), 0, set.lines.size(), m_window);
    progress->setMinimumDuration(PROGRESS_DELAY_MS);
    progress->setWindowModality(Qt::WindowModal);
    connect(progress, &QProgressDialog::canceled, job, &FeatureSetJob::cancel);
    connect(job, &FeatureSetJob::progress, progress, &QProgressDialog::setValue);
    ++m_busy;
    updateActions();
    const BaseInfoPtr camera = m_camera;
    connect(job, &FeatureSetJob::loaded, this,
            [this, job, progress, camera,
             fileName](const Backend::FeatureSetTransfer::LoadReport& report) {
                finish(job);
                progress->deleteLater();
                if (m_report) {
                    m_report->deleteLater();
                }
                m_report = new FeatureSetReportDialog(fileName, report, m_window);
                m_report->setAttribute(Qt::WA_DeleteOnClose);
                m_report->show();
                Q_EMIT featureSetLoaded(camera, report, QFileInfo(fileName).fileName());
            });
    connect(job, &FeatureSetJob::failed, this,
            [this, job, progress, fileName](const QString& reason) {
                finish(job);
                progress->deleteLater();
                Q_EMIT failed(tr("Cannot load %1: %2").arg(fileName, reason));
            });
    job->load(set);
}

void FeatureSetActions::askAndCompare()
{
    if (!m_camera) {
        return;
    }
    QList<BaseInfoPtr> others;
    QStringList choices{tr("A feature set file...")};
    for (const BaseInfoPtr& info : m_cameras()) {
        if (info != m_camera) {
            others << info;
            choices << CameraName::of(*info);
        }
    }
    int chosen = 0;
    if (!others.isEmpty()) {
        bool ok = false;
        const QString choice = QInputDialog::getItem(
            m_window, tr("Compare Features"), tr("Compare %1 with:").arg(CameraName::of(*m_camera)),
            choices, 0, false, &ok);
        if (!ok) {
            return;
        }
        chosen = choices.indexOf(choice);
    }
    if (chosen > 0) {
        compareWithCamera(others.at(chosen - 1));
        return;
    }
    const QString file =
        QFileDialog::getOpenFileName(m_window, tr("Compare Features"), QString(), kFileFilter);
    if (!file.isEmpty()) {
        compareWithFile(file);
    }
}

void FeatureSetActions::compareWithFile(const QString& fileName)
{
    if (!m_camera) {
        return;
    }
    FeatureSet fromFile;
    try {
        fromFile = FeatureSet::read(fileName);
    } catch (const ParameterCollection::Exception& e) {
        Q_EMIT failed(tr("Cannot compare with %1: %2").arg(fileName, e.message()));
        return;
    }
    const QString left = CameraName::of(*m_camera);
    snapshot(m_camera, [this, fromFile, left, fileName](const FeatureSet& set) {
        showComparison(set, fromFile, left, QFileInfo(fileName).fileName());
    });
}

void FeatureSetActions::compareWithCamera(const BaseInfoPtr& other)
{
    if (!m_camera || !other) {
        return;
    }
    const BaseInfoPtr camera = m_camera;
    snapshot(camera, [this, camera, other](const FeatureSet& left) {
        snapshot(other, [this, camera, other, left](const FeatureSet& right) {
            showComparison(left, right, CameraName::of(*camera), CameraName::of(*other));
        });
    });
}

void FeatureSetActions::showComparison(const FeatureSet& left, const FeatureSet& right,
                                       const QString& leftName, const QString& rightName)
{
    if (!m_compareDialog) {
        m_compareDialog = new FeatureSetCompareDialog(m_window);
        m_compareDialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_compareDialog, &FeatureSetCompareDialog::featureChosen, this,
                [this](const QString& feature) {
                    if (m_controlService && m_camera) {
                        m_controlService->selectFeature(m_camera,
                                                        QStringLiteral("@CameraDevice/") + feature);
                    }
                });
    }
    m_compareDialog->setDifferences(FeatureSet::compare(left, right), leftName, rightName);
    m_compareDialog->show();
    m_compareDialog->raise();
    Q_EMIT compared();
}

} // namespace VantoViewer
