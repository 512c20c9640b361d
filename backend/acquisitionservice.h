#pragma once

#include <acquisition/iacquisitionservice.h>

#include <QHash>
#include <QPointer>

namespace Backend {

class Acquisition;
class CameraPool;

// One Acquisition per camera the pool opens, made as the camera opens and gone as it closes.
class AcquisitionService : public Plugin::Acquisition::IAcquisitionService {
    Q_OBJECT
public:
    explicit AcquisitionService(CameraPool* pool, QObject* parent = nullptr);
    ~AcquisitionService() override;

    Plugin::Acquisition::IAcquisition*
    getAcquisition(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const override;
    // The same, as the backend's own class.
    Acquisition* acquisitionOf(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const;

private:
    void add(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    void remove(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);

    QPointer<CameraPool> m_pool;
    QHash<Plugin::CameraPool::IBaseInfo*, Acquisition*> m_acquisitions; // children
};

} // namespace Backend
