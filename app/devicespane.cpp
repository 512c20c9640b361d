#include "devicespane.h"

#include "cameraname.h"

#include <featuretree/featuretreemetatypes.h>

#include <QAction>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QThread>
#include <QToolButton>
#include <QVBoxLayout>

namespace VantoViewer {

namespace {
constexpr int DISCOVERED_ROLE = Qt::UserRole + 1;
constexpr int LOST_ROLE = Qt::UserRole + 2;

} // namespace

DevicesPane::DevicesPane(QWidget* parent)
    : QWidget(parent), m_devices(new QListWidget(this)), m_discovered(new QListWidget(this)),
      m_discoveredLabel(new QLabel(tr("Found cameras (double-click to open):"), this)),
      m_openButton(new QToolButton(this)), m_closeButton(new QToolButton(this)),
      m_reconnectButton(new QToolButton(this)),
      m_reconnectAction(new QAction(tr("Reconnect"), this)),
      m_closeAction(new QAction(tr("Close"), this)), m_scanButton(new QToolButton(this)),
      m_scanner(&Backend::CameraPool::discover)
{
    // Its signals carry camera infos, also through queued connections.
    Plugin::FeatureTree::registerFeatureTreeMetaTypes();
    setObjectName(QStringLiteral("devicesPane"));
    m_devices->setObjectName(QStringLiteral("deviceList"));
    m_discovered->setObjectName(QStringLiteral("discoveredList"));
    m_discoveredLabel->setObjectName(QStringLiteral("discoveredLabel"));

    auto* openMenu = new QMenu(m_openButton);
    QAction* byAddress = openMenu->addAction(tr("Camera by IP Address or ID..."));
    byAddress->setObjectName(QStringLiteral("openByAddressAction"));
    connect(byAddress, &QAction::triggered, this, &DevicesPane::askForAddress);
    QAction* builtIn = openMenu->addAction(tr("Built-in Simulated Camera"));
    builtIn->setObjectName(QStringLiteral("openBuiltInAction"));
    connect(builtIn, &QAction::triggered, this,
            [this]() { Q_EMIT openSimulatedRequested(QString()); });
    QAction* fromFile = openMenu->addAction(tr("Simulated Camera from GenICam File..."));
    fromFile->setObjectName(QStringLiteral("openFromFileAction"));
    connect(fromFile, &QAction::triggered, this, &DevicesPane::askForDescriptionFile);

    m_openButton->setObjectName(QStringLiteral("openButton"));
    m_openButton->setText(tr("Open"));
    m_openButton->setToolTip(tr("Open a camera"));
    m_openButton->setMenu(openMenu);
    m_openButton->setPopupMode(QToolButton::InstantPopup);
    m_closeButton->setObjectName(QStringLiteral("closeButton"));
    m_closeButton->setText(tr("Close"));
    m_closeButton->setToolTip(tr("Close the selected camera"));
    connect(m_closeButton, &QToolButton::clicked, this, [this]() {
        if (const BaseInfoPtr info = activeDevice()) {
            Q_EMIT closeRequested(info);
        }
    });
    m_closeAction->setObjectName(QStringLiteral("closeAction"));
    connect(m_closeAction, &QAction::triggered, m_closeButton, &QToolButton::click);
    m_reconnectAction->setObjectName(QStringLiteral("reconnectAction"));
    m_reconnectAction->setToolTip(tr("Open the lost camera again, once it is back"));
    connect(m_reconnectAction, &QAction::triggered, this, [this]() {
        const BaseInfoPtr info = activeDevice();
        if (info && isMarkedLost(info)) {
            Q_EMIT reconnectRequested(info);
        }
    });
    m_reconnectButton->setObjectName(QStringLiteral("reconnectButton"));
    m_reconnectButton->setDefaultAction(m_reconnectAction);
    m_devices->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_devices, &QListWidget::customContextMenuRequested, this,
            &DevicesPane::showDeviceMenu);
    m_scanButton->setObjectName(QStringLiteral("scanButton"));
    m_scanButton->setText(tr("Scan"));
    m_scanButton->setToolTip(tr("Look for cameras on every network interface and on USB"));
    connect(m_scanButton, &QToolButton::clicked, this, &DevicesPane::scan);

    // Two rows, so that the pane stays narrow beside the image.
    auto* buttons = new QGridLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    const QList<QToolButton*> grid{m_openButton, m_closeButton, m_reconnectButton, m_scanButton};
    for (int i = 0; i < grid.size(); ++i) {
        grid.at(i)->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        buttons->addWidget(grid.at(i), i / 2, i % 2);
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(buttons);
    layout->addWidget(m_devices, 2);
    layout->addWidget(m_discoveredLabel);
    layout->addWidget(m_discovered, 1);
    m_discoveredLabel->hide();
    m_discovered->hide();

    connect(m_devices, &QListWidget::currentRowChanged, this, [this](int row) {
        updateButtons();
        Q_EMIT activeDeviceChanged(row >= 0 && row < m_infos.size() ? m_infos.at(row)
                                                                    : BaseInfoPtr());
    });
    connect(m_discovered, &QListWidget::itemActivated, this, &DevicesPane::openDiscovered);
    updateButtons();
}

DevicesPane::~DevicesPane()
{
    // The scan cannot be interrupted; its result has nowhere to go once the pane is gone.
    if (m_scanThread) {
        disconnect(m_scanThread, nullptr, this, nullptr);
        m_scanThread->wait();
    }
}

void DevicesPane::addDevice(const BaseInfoPtr& info)
{
    if (!info || m_infos.contains(info)) {
        return;
    }
    m_infos.append(info);
    auto* item = new QListWidgetItem(CameraName::of(*info), m_devices);
    item->setToolTip(info->getDeviceText());
    // A newly opened camera is the one the user wants to see.
    m_devices->setCurrentItem(item);
}

void DevicesPane::removeDevice(const BaseInfoPtr& info)
{
    const int row = rowOf(info);
    if (row < 0) {
        return;
    }
    const bool wasActive = m_devices->currentRow() == row;
    m_infos.removeAt(row);
    {
        // Taking the current row would activate a neighbour the user never chose; taking another
        // one only moves the active camera's row.
        const QSignalBlocker blocker(m_devices);
        delete m_devices->takeItem(row);
        if (wasActive) {
            m_devices->setCurrentRow(-1);
        }
    }
    updateButtons();
    if (wasActive) {
        Q_EMIT activeDeviceChanged(BaseInfoPtr());
    }
}

void DevicesPane::markLost(const BaseInfoPtr& info, const QString& message)
{
    const int row = rowOf(info);
    if (row < 0) {
        return;
    }
    QListWidgetItem* item = m_devices->item(row);
    item->setData(LOST_ROLE, true);
    item->setText(tr("%1 (lost)").arg(CameraName::of(*info)));
    item->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
    item->setToolTip(info->getDeviceText() + QLatin1Char('\n') + message);
    updateButtons();
}

void DevicesPane::replaceDevice(const BaseInfoPtr& old, const BaseInfoPtr& info)
{
    const int row = rowOf(old);
    if (row < 0 || !info || m_infos.contains(info)) {
        return;
    }
    m_infos[row] = info;
    QListWidgetItem* item = m_devices->item(row);
    item->setData(LOST_ROLE, QVariant());
    item->setText(CameraName::of(*info));
    item->setData(Qt::ForegroundRole, QVariant());
    item->setToolTip(info->getDeviceText());
    updateButtons();
    if (m_devices->currentRow() == row) {
        Q_EMIT activeDeviceChanged(info);
    }
}

bool DevicesPane::isMarkedLost(const BaseInfoPtr& info) const
{
    const int row = rowOf(info);
    return row >= 0 && m_devices->item(row)->data(LOST_ROLE).toBool();
}

QList<DevicesPane::BaseInfoPtr> DevicesPane::devices() const
{
    return m_infos;
}

DevicesPane::BaseInfoPtr DevicesPane::activeDevice() const
{
    const int row = m_devices->currentRow();
    return row >= 0 && row < m_infos.size() ? m_infos.at(row) : BaseInfoPtr();
}

void DevicesPane::setActiveDevice(const BaseInfoPtr& info)
{
    m_devices->setCurrentRow(rowOf(info));
}

void DevicesPane::setScanner(Scanner scanner)
{
    m_scanner = std::move(scanner);
}

void DevicesPane::scan()
{
    if (m_scanThread || !m_scanner) {
        return;
    }
    m_scanButton->setEnabled(false);
    m_scanButton->setText(tr("Scanning..."));
    auto found = QSharedPointer<QList<Backend::CameraPool::DiscoveredDevice>>::create();
    const Scanner scanner = m_scanner;
    m_scanThread = QThread::create([found, scanner]() { *found = scanner(); });
    m_scanThread->setParent(this);
    connect(m_scanThread, &QThread::finished, this, [this, found]() {
        m_scanThread->deleteLater();
        m_scanThread = nullptr;
        onScanDone(*found);
    });
    m_scanThread->start();
}

bool DevicesPane::isScanning() const
{
    return m_scanThread != nullptr;
}

QList<Backend::CameraPool::DiscoveredDevice> DevicesPane::discoveredDevices() const
{
    return m_found;
}

QListWidget* DevicesPane::deviceList() const
{
    return m_devices;
}

QListWidget* DevicesPane::discoveredList() const
{
    return m_discovered;
}

void DevicesPane::askForAddress()
{
    bool accepted = false;
    const QString text =
        QInputDialog::getText(this, tr("Open Camera"), tr("IP address or device ID:"),
                              QLineEdit::Normal, QString(), &accepted)
            .trimmed();
    if (accepted && !text.isEmpty()) {
        Q_EMIT openRequested(text);
    }
}

void DevicesPane::askForDescriptionFile()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Simulate a Camera"), QString(),
                                                      tr("GenICam descriptions (*.xml *.zip)"));
    if (!file.isEmpty()) {
        Q_EMIT openSimulatedRequested(file);
    }
}

void DevicesPane::openDiscovered(QListWidgetItem* item)
{
    if (item) {
        Q_EMIT openRequested(item->data(DISCOVERED_ROLE).toString());
    }
}

void DevicesPane::onScanDone(const QList<Backend::CameraPool::DiscoveredDevice>& found)
{
    m_found = found;
    m_scanButton->setEnabled(true);
    m_scanButton->setText(tr("Scan"));
    m_discovered->clear();
    for (const Backend::CameraPool::DiscoveredDevice& device : found) {
        const QString where = device.address.isEmpty() ? device.protocol : device.address;
        auto* item = new QListWidgetItem(
            QStringLiteral("%1 %2 (%3)").arg(device.vendor, device.model, where), m_discovered);
        item->setData(DISCOVERED_ROLE, device.id);
        item->setToolTip(tr("ID: %1\nSerial number: %2\nTransport: %3")
                             .arg(device.id, device.serial, device.protocol));
    }
    if (found.isEmpty()) {
        auto* item = new QListWidgetItem(tr("No cameras found"), m_discovered);
        item->setFlags(Qt::NoItemFlags);
    }
    m_discoveredLabel->show();
    m_discovered->show();
    Q_EMIT scanFinished(found.size());
}

QAction* DevicesPane::reconnectAction() const
{
    return m_reconnectAction;
}

void DevicesPane::updateButtons()
{
    const BaseInfoPtr active = activeDevice();
    m_closeButton->setEnabled(!active.isNull());
    m_closeAction->setEnabled(!active.isNull());
    m_reconnectAction->setEnabled(active && isMarkedLost(active));
}

void DevicesPane::showDeviceMenu(const QPoint& position)
{
    QListWidgetItem* item = m_devices->itemAt(position);
    if (!item) {
        return;
    }
    // The menu acts on the row it was opened on.
    m_devices->setCurrentItem(item);
    QMenu menu(this);
    menu.addAction(m_reconnectAction);
    menu.addAction(m_closeAction);
    menu.exec(m_devices->viewport()->mapToGlobal(position));
}

int DevicesPane::rowOf(const BaseInfoPtr& info) const
{
    return info ? m_infos.indexOf(info) : -1;
}

} // namespace VantoViewer
