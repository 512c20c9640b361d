#pragma once

#include <camerapool/ibaseinfo.h>

// A camera as the host describes it, for tests that pass camera infos around.
class FakeBaseInfo : public Plugin::CameraPool::IBaseInfo {
public:
    explicit FakeBaseInfo(const QString& serialNumber) : m_serialNumber(serialNumber) {}

    QString getId() const override { return QStringLiteral("Simulated:") + m_serialNumber; }
    QString getVendorName() const override { return QStringLiteral("Vanto"); }
    QString getModelName() const override { return QStringLiteral("VNT-SIM-2000"); }
    QString getSerialNumber() const override { return m_serialNumber; }
    QString getTransportLayer() const override { return QStringLiteral("Simulated"); }
    QString getDeviceText() const override { return QStringLiteral("Vanto_VNT-SIM-2000"); }
    QString getFriendlyName() const override
    {
        return QStringLiteral("Vanto VNT-SIM-2000 (") + m_serialNumber + QLatin1Char(')');
    }

private:
    QString m_serialNumber;
};
