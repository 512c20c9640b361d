#include "camerainfo.h"

#include <QCoreApplication>

namespace Backend {

CameraInfo::CameraInfo(QString id, QString vendor, QString model, QString serial,
                       QString transportLayer)
    : m_id(std::move(id)), m_vendor(std::move(vendor)), m_model(std::move(model)),
      m_serial(std::move(serial)), m_transportLayer(std::move(transportLayer))
{}

QString CameraInfo::getDeviceText() const
{
    QString text = m_vendor + QLatin1Char('_') + m_model;
    text.replace(QLatin1Char(' '), QLatin1Char('_'));
    return text;
}

QString CameraInfo::getFriendlyName() const
{
    QString name = (m_vendor + QLatin1Char(' ') + m_model).trimmed();
    if (!m_serial.isEmpty()) {
        name += QStringLiteral(" (%1)").arg(m_serial);
    }
    return name;
}

QString CameraInfo::getNodeMapDisplayName(const QString& nodeMapName) const
{
    if (nodeMapName == QLatin1String("CameraDevice")) {
        return getFriendlyName();
    }
    if (nodeMapName == QLatin1String("Interface")) {
        return QCoreApplication::translate("Backend::CameraInfo", "%1 Interface")
            .arg(m_transportLayer);
    }
    return nodeMapName;
}

} // namespace Backend
