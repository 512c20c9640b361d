#pragma once

#include <camerapool/icamerainfo.h>

namespace Backend {

class CameraInfo : public Plugin::CameraPool::ICameraInfo {
public:
    CameraInfo(QString id, QString vendor, QString model, QString serial, QString transportLayer);

    QString getId() const override { return m_id; }
    QString getVendorName() const override { return m_vendor; }
    QString getModelName() const override { return m_model; }
    QString getSerialNumber() const override { return m_serial; }
    QString getTransportLayer() const override { return m_transportLayer; }
    QString getDeviceText() const override;
    QString getFriendlyName() const override;
    bool isGigE() const override { return m_transportLayer == QLatin1String("GigEVision"); }
    QString getNodeMapDisplayName(const QString& nodeMapName) const override;

private:
    QString m_id;
    QString m_vendor;
    QString m_model;
    QString m_serial;
    QString m_transportLayer;
};

} // namespace Backend
