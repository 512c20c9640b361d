#include "windowservice.h"

#include <QMainWindow>
#include <QSettings>

namespace VantoViewer {

WindowService::WindowService(QMainWindow* mainWindow, QObject* parent)
    : Plugin::AppCore::IWindowService(parent), m_mainWindow(mainWindow)
{}

WindowService::~WindowService() = default;

QString WindowService::settingsKey(const Core::CId& widgetId, const QString& key)
{
    // Slashes would open sub-groups in QSettings; panel ids are dotted, keys are free text.
    QString panel = widgetId.toString();
    panel.replace(QLatin1Char('/'), QLatin1Char('_'));
    return QStringLiteral("Panels/") + panel + QLatin1Char('/') + key;
}

void WindowService::saveState(const Core::CId& widgetId, const QString& key, const QVariant& value)
{
    QSettings settings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer"));
    settings.setValue(settingsKey(widgetId, key), value);
    // QSettings would only find out when it is gone, and then tell nobody.
    settings.sync();
    if (m_failureReported) {
        return;
    }
    QString reason;
    if (settings.status() == QSettings::AccessError || !settings.isWritable()) {
        reason = tr("the file or its folder cannot be written");
    } else if (settings.status() == QSettings::FormatError) {
        reason = tr("the file is damaged");
    } else {
        return;
    }
    m_failureReported = true;
    Q_EMIT settingsNotSaved(settings.fileName(), reason);
}

QVariant WindowService::restoreState(const Core::CId& widgetId, const QString& key,
                                     const QVariant& defaultValue) const
{
    const QSettings settings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer"));
    return settings.value(settingsKey(widgetId, key), defaultValue);
}

QMainWindow* WindowService::mainWindow() const
{
    return m_mainWindow;
}

void WindowService::setMainWindow(QMainWindow* mainWindow)
{
    m_mainWindow = mainWindow;
}

} // namespace VantoViewer
