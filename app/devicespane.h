#pragma once

#include <camerapool.h>

#include <QList>
#include <QSharedPointer>
#include <QWidget>

#include <functional>

class QAction;
class QLabel;
class QPoint;
class QListWidget;
class QListWidgetItem;
class QThread;
class QToolButton;

namespace VantoViewer {

// The Devices pane: the open cameras, one of which is the active one that the feature panels
// show, and the commands to open, close and look for cameras. It only asks; the window opens
// and closes cameras and tells the pane what is open.
class DevicesPane : public QWidget {
    Q_OBJECT
public:
    using BaseInfoPtr = QSharedPointer<Plugin::CameraPool::IBaseInfo>;
    using Scanner = std::function<QList<Backend::CameraPool::DiscoveredDevice>()>;

    explicit DevicesPane(QWidget* parent = nullptr);
    ~DevicesPane() override;

    // Lists the camera and makes it the active one.
    void addDevice(const BaseInfoPtr& info);
    void removeDevice(const BaseInfoPtr& info);
    // The camera stays listed, marked, so the user sees what happened to it.
    void markLost(const BaseInfoPtr& info, const QString& message);
    bool isMarkedLost(const BaseInfoPtr& info) const;
    // The camera opened again in place of `old`: same row, no longer marked lost, and the
    // active one if `old` was.
    void replaceDevice(const BaseInfoPtr& old, const BaseInfoPtr& info);
    QList<BaseInfoPtr> devices() const;
    BaseInfoPtr activeDevice() const;
    void setActiveDevice(const BaseInfoPtr& info);

    // Discovery broadcasts on every interface, so it runs only when the user asks, on a
    // thread of its own: a slow network never holds up the window.
    void setScanner(Scanner scanner);
    void scan();
    bool isScanning() const;
    QList<Backend::CameraPool::DiscoveredDevice> discoveredDevices() const;

    QListWidget* deviceList() const;
    QListWidget* discoveredList() const;
    // Offered by the Reconnect button and the list's context menu; enabled for a lost camera.
    QAction* reconnectAction() const;

Q_SIGNALS:
    void activeDeviceChanged(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void openRequested(const QString& idOrAddress);
    // An empty file asks for the built-in simulated camera.
    void openSimulatedRequested(const QString& xmlFile);
    void closeRequested(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void reconnectRequested(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void scanFinished(int found);

private:
    void askForAddress();
    void askForDescriptionFile();
    void openDiscovered(QListWidgetItem* item);
    void onScanDone(const QList<Backend::CameraPool::DiscoveredDevice>& found);
    void updateButtons();
    void showDeviceMenu(const QPoint& position);
    int rowOf(const BaseInfoPtr& info) const;

    QListWidget* m_devices;         // child
    QListWidget* m_discovered;      // child
    QLabel* m_discoveredLabel;      // child
    QToolButton* m_openButton;      // child
    QToolButton* m_closeButton;     // child
    QToolButton* m_reconnectButton; // child
    QAction* m_reconnectAction;     // child
    QAction* m_closeAction;         // child
    QToolButton* m_scanButton;      // child
    QList<BaseInfoPtr> m_infos;
    QList<Backend::CameraPool::DiscoveredDevice> m_found;
    Scanner m_scanner;
    QThread* m_scanThread = nullptr; // child while it runs
};

} // namespace VantoViewer
