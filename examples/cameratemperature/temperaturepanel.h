#pragma once

#include <camerapool/ibaseinfo.h>
#include <parametercollection/parameterdata.h>

#include <QSharedPointer>
#include <QTimer>
#include <QWidget>

class QLabel;

namespace Plugin {
namespace CameraPool {
class IDeviceParameterService;
}
} // namespace Plugin
namespace ParameterCollection {
class IParameter;
class IParameterCollection;
} // namespace ParameterCollection

// The active camera's model and its DeviceTemperature, re-read every second. Every text comes
// from the camera: a feature it lacks or can't read says so.
class TemperaturePanel : public QWidget {
    Q_OBJECT
public:
    explicit TemperaturePanel(QSharedPointer<Plugin::CameraPool::IDeviceParameterService> cameras,
                              QWidget* parent = nullptr);

public Q_SLOTS:
    void setCamera(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);

private:
    void show(const QSharedPointer<const ParameterCollection::ParameterData>& data);
    void poll();

    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> m_cameras;
    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    QSharedPointer<ParameterCollection::IParameter> m_temperature;
    QLabel* m_model = nullptr;
    QLabel* m_value = nullptr;
    QTimer m_poll;
};
