#include "temperaturepanel.h"

#include <camerapool/ideviceparameterservice.h>
#include <parametercollection/iparametercollection.h>

#include <QFormLayout>
#include <QLabel>

using namespace ParameterCollection;

namespace {
const char* const kTemperature = "@CameraDevice/DeviceTemperature";
const int kPollMs = 1000;
} // namespace

TemperaturePanel::TemperaturePanel(
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> cameras, QWidget* parent)
    : QWidget(parent), m_cameras(std::move(cameras)), m_model(new QLabel(this)),
      m_value(new QLabel(this))
{
    setObjectName(QStringLiteral("CameraTemperaturePanel"));
    auto* layout = new QFormLayout(this);
    layout->addRow(tr("Model"), m_model);
    layout->addRow(tr("Device temperature"), m_value);
    m_poll.setInterval(kPollMs);
    connect(&m_poll, &QTimer::timeout, this, &TemperaturePanel::poll);
    setCamera({});
}

void TemperaturePanel::setCamera(QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
{
    if (m_temperature) {
        disconnect(m_temperature.data(), nullptr, this, nullptr);
    }
    m_poll.stop();
    m_temperature.reset();
    m_collection = info ? m_cameras->getParameterCollection(info) : nullptr;
    if (!m_collection) {
        m_model->setText(tr("No camera"));
        m_value->clear();
        return;
    }
    m_model->setText(info->getModelName());
    m_temperature = m_collection->getParameter(QString::fromLatin1(kTemperature));
    if (!m_temperature) {
        m_value->setText(tr("This camera has no DeviceTemperature"));
        return;
    }
    connect(m_temperature.data(), &IParameter::parameterDataChanged, this, &TemperaturePanel::show);
    show(m_temperature->getParameterData());
    m_poll.start();
}

void TemperaturePanel::poll()
{
    // Reads are queued to the camera's own thread; the new value arrives as a data change.
    if (m_collection && !m_collection->isLost()) {
        m_collection->refresh({ParameterName(QString::fromLatin1(kTemperature))});
    }
}

void TemperaturePanel::show(const QSharedPointer<const ParameterData>& data)
{
    if (!data || !data->implemented) {
        m_value->setText(tr("Not implemented"));
    } else if (data->hasError()) {
        m_value->setText(tr("Error: %1").arg(data->errorText));
    } else if (!data->readable) {
        m_value->setText(data->available ? tr("Not readable") : tr("Not available"));
    } else {
        const QString unit = data->unit.isEmpty() ? QString() : QLatin1Char(' ') + data->unit;
        m_value->setText(data->displayText + unit +
                         (data->deviceLost ? tr(" (camera lost)") : QString()));
    }
}
