#pragma once

#include <appcore/iwindowservice.h>

#include <QPointer>

class QMainWindow;

namespace VantoViewer {

// Panel state lives in the application's own settings, one group per panel, so that panels
// of different plug-ins never overwrite each other's keys.
class WindowService : public Plugin::AppCore::IWindowService {
    Q_OBJECT
public:
    explicit WindowService(QMainWindow* mainWindow = nullptr, QObject* parent = nullptr);
    ~WindowService() override;

    void saveState(const Core::CId& widgetId, const QString& key, const QVariant& value) override;
    QVariant restoreState(const Core::CId& widgetId, const QString& key,
                          const QVariant& defaultValue) const override;
    QMainWindow* mainWindow() const override;
    void setMainWindow(QMainWindow* mainWindow);

Q_SIGNALS:
    // The settings could not be written; sent once, for the first failure.
    void settingsNotSaved(const QString& file, const QString& reason);

private:
    static QString settingsKey(const Core::CId& widgetId, const QString& key);

    QPointer<QMainWindow> m_mainWindow;
    bool m_failureReported = false;
};

} // namespace VantoViewer
