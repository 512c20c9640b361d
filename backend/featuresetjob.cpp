#include "featuresetjob.h"

#include "deviceparametercollection.h"

#include <QEventLoop>
#include <QMutex>

using namespace ParameterCollection;

namespace Backend {

// What the device thread and the job share. `receiver` is cleared under the lock when the job
// goes, so that a transfer finishing late never posts to a job that is gone.
struct FeatureSetJob::Shared {
    QMutex mutex;
    QObject* receiver = nullptr;
    std::atomic<bool> cancel{false};

    template <class F> void post(F&& f)
    {
        const QMutexLocker lock(&mutex);
        if (receiver != nullptr) {
            QMetaObject::invokeMethod(receiver, std::forward<F>(f), Qt::QueuedConnection);
        }
    }
};

static const QString kNodeMap = QStringLiteral("CameraDevice");

FeatureSetJob::FeatureSetJob(DeviceParameterCollection* collection, QObject* parent)
    : QObject(parent), m_collection(collection), m_shared(std::make_shared<Shared>())
{
    m_shared->receiver = this;
    qRegisterMetaType<Backend::FeatureSet>();
    qRegisterMetaType<Backend::FeatureSetTransfer::LoadReport>();
}

FeatureSetJob::~FeatureSetJob()
{
    m_shared->cancel.store(true);
    const QMutexLocker lock(&m_shared->mutex);
    m_shared->receiver = nullptr;
}

bool FeatureSetJob::begin()
{
    if (m_running) {
        return false;
    }
    if (m_collection->mapIndex(kNodeMap) < 0) {
        Q_EMIT failed(QStringLiteral("the camera has no %1 node map").arg(kNodeMap));
        return false;
    }
    if (m_collection->isLost()) {
        Q_EMIT failed(QStringLiteral("the camera is lost"));
        return false;
    }
    m_shared->cancel.store(false);
    m_running = true;
    return true;
}

void FeatureSetJob::save()
{
    if (!begin()) {
        return;
    }
    const int map = m_collection->mapIndex(kNodeMap);
    auto shared = m_shared;
    m_collection->postToDeviceThread([shared, map, this](DeviceWorker& worker) {
        const auto access = worker.transferAccess(map);
        const FeatureSet set = FeatureSetTransfer(*access).save();
        shared->post([this, set] {
            m_running = false;
            Q_EMIT saved(set);
        });
    });
}

void FeatureSetJob::load(const FeatureSet& set)
{
    if (!begin()) {
        return;
    }
    const int map = m_collection->mapIndex(kNodeMap);
    auto shared = m_shared;
    m_collection->postToDeviceThread([shared, map, set, this](DeviceWorker& worker) {
        const auto access = worker.transferAccess(map);
        const FeatureSetTransfer::LoadReport report = FeatureSetTransfer(*access).load(
            set, &shared->cancel, [&shared, this](int done, int total) {
                shared->post([this, done, total] { Q_EMIT progress(done, total); });
            });
        // The collection shows what the camera holds now, not what it held before.
        worker.republish(map);
        shared->post([this, report] {
            m_running = false;
            Q_EMIT loaded(report);
        });
    });
}

void FeatureSetJob::loadFile(const QString& fileName)
{
    FeatureSet set;
    try {
        set = FeatureSet::read(fileName);
    } catch (const Exception& e) {
        Q_EMIT failed(e.text());
        return;
    }
    load(set);
}

void FeatureSetJob::cancel()
{
    m_shared->cancel.store(true);
}

FeatureSet FeatureSetJob::saveAndWait(DeviceParameterCollection* collection)
{
    FeatureSetJob job(collection);
    QEventLoop loop;
    FeatureSet result;
    QString error;
    connect(&job, &FeatureSetJob::saved, &loop, [&](const FeatureSet& set) {
        result = set;
        loop.quit();
    });
    connect(&job, &FeatureSetJob::failed, &loop, [&](const QString& message) {
        error = message;
        loop.quit();
    });
    job.save();
    if (job.isRunning()) {
        loop.exec();
    }
    if (!error.isEmpty()) {
        throw AccessException(collection->getName(), error);
    }
    return result;
}

FeatureSetTransfer::LoadReport FeatureSetJob::loadAndWait(DeviceParameterCollection* collection,
                                                          const FeatureSet& set)
{
    FeatureSetJob job(collection);
    QEventLoop loop;
    FeatureSetTransfer::LoadReport result;
    QString error;
    connect(&job, &FeatureSetJob::loaded, &loop, [&](const FeatureSetTransfer::LoadReport& report) {
        result = report;
        loop.quit();
    });
    connect(&job, &FeatureSetJob::failed, &loop, [&](const QString& message) {
        error = message;
        loop.quit();
    });
    job.load(set);
    if (job.isRunning()) {
        loop.exec();
    }
    if (!error.isEmpty()) {
        throw AccessException(collection->getName(), error);
    }
    // The values published by the load are on their way; the caller reads them next.
    collection->waitForDevice();
    return result;
}

} // namespace Backend
