#pragma once

#include <QMetaType>
#include <QSharedPointer>
#include <QString>

namespace Plugin {
namespace CameraPool {

// What the host knows of a device before and after it is opened.
class IBaseInfo {
public:
    virtual ~IBaseInfo() = default;

    // Unique within the host: the Aravis device id, or "Simulated:<n>".
    virtual QString getId() const = 0;
    virtual QString getVendorName() const = 0;
    virtual QString getModelName() const = 0;
    virtual QString getSerialNumber() const = 0;
    // "GigEVision", "USB3Vision" or "Simulated".
    virtual QString getTransportLayer() const = 0;
    // The text that names the device model in file names, such as filter files:
    // "<vendor>_<model>" with blanks as underscores.
    virtual QString getDeviceText() const = 0;
    // What a user reads: "Vanto VNT-SIM-2000 (SIM0001)".
    virtual QString getFriendlyName() const = 0;
};

using BaseInfoPtr = QSharedPointer<IBaseInfo>;

} // namespace CameraPool
} // namespace Plugin

Q_DECLARE_METATYPE(Plugin::CameraPool::BaseInfoPtr)
