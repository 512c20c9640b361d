#pragma once

#include "imagewriter.h"
#include "streammeter.h"

#include <acquisition/frame.h>

#include <QElapsedTimer>
#include <QPoint>
#include <QPointer>
#include <QSharedPointer>
#include <QWidget>

class QAction;
class QGridLayout;
class QLabel;
class QTimer;
class QToolBar;

namespace ParameterCollection {
class IParameterCollection;
} // namespace ParameterCollection
namespace Plugin {
namespace Acquisition {
class IAcquisition;
class IAcquisitionService;
} // namespace Acquisition
namespace CameraPool {
class IBaseInfo;
class IDeviceParameterService;
} // namespace CameraPool
} // namespace Plugin

namespace VantoViewer {

class AcquisitionActions;
class FrameConverter;
class Histogram;
class ImageView;

// The active camera's live image: the acquisition tool bar, the view, the pixel under the
// cursor and the stream's rates. Each open camera keeps its own acquisition; switching to
// another camera only changes which one is shown.
class ImagePanel : public QWidget {
    Q_OBJECT
public:
    // How often the rates are worked out again.
    static constexpr int METER_INTERVAL_MS = 1000;

    explicit ImagePanel(QWidget* parent = nullptr);
    ~ImagePanel() override;

    void setServices(Plugin::Acquisition::IAcquisitionService* acquisitions, // not owned
                     Plugin::CameraPool::IDeviceParameterService* devices);  // not owned
    void setActiveDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);

    AcquisitionActions* acquisitionActions() const { return m_actions; }
    ImageView* view() const { return m_view; }
    QToolBar* toolBar() const { return m_toolBar; }
    QAction* saveImageAction() const { return m_saveImage; }
    QAction* fitAction() const { return m_fit; }
    QAction* actualSizeAction() const { return m_actualSize; }

    // The frame whose image is shown, or whose conversion failed; null before the first.
    Plugin::Acquisition::FramePtr shownFrame() const { return m_shownFrame; }
    // What the status line and the cursor line say.
    QString statusText() const;
    QString cursorText() const;

    // Writes the shown frame. False with `error` set when there is none or it can't be written.
    bool saveImage(const QString& path, ImageWriter::Format format, QString* error) const;

    // Whether the status shows as two lines of two texts, or, where the panel is too narrow
    // for the longest texts side by side, as four lines of one.
    bool statusInTwoColumns() const { return m_twoColumns; }

Q_SIGNALS:
    // The histogram of the frame just handed to the view.
    void histogramChanged(const VantoViewer::Histogram& histogram);
    // The view has nothing to show any more (another camera, a failure); the histogram goes.
    void histogramCleared();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    static QString frameText(quint32 pixelFormat, quint32 width, quint32 height);
    static QString ratesText(double receivedFps, double displayedFps, double megabytesPerSecond);
    static QString countsText(quint64 incomplete, quint64 dropped);
    static QString pixelText(int x, int y, const QString& value);
    void arrangeStatusLines();
    void buildToolBar();
    void watchAcquisition(Plugin::Acquisition::IAcquisition* acquisition);
    void newConverter(const QSharedPointer<ParameterCollection::IParameterCollection>& collection);
    void watchConversionFeatures(
        const QSharedPointer<ParameterCollection::IParameterCollection>& collection,
        const QString& category);
    void applyConversionSettings();
    void takeLatestFrame();
    void onConverted(const Plugin::Acquisition::FramePtr& frame, const QImage& image,
                     const Histogram& histogram);
    void onConversionFailed(const Plugin::Acquisition::FramePtr& frame, const QString& message);
    void showIdleMessage();
    void resetMeter();
    void updateStatus();
    void updateCursorText(const QPoint& pixel);
    static void setText(QLabel* label, const QString& text);
    void askAndSave();

    QPointer<Plugin::Acquisition::IAcquisitionService> m_acquisitions;
    QPointer<Plugin::CameraPool::IDeviceParameterService> m_devices;
    QSharedPointer<Plugin::CameraPool::IBaseInfo> m_info;
    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    QPointer<Plugin::Acquisition::IAcquisition> m_acquisition;
    // One per camera shown: its settings come from that camera's @ImageFormatConverter.
    QPointer<FrameConverter> m_converter;
    // The last frame handed to the converter, known without holding on to its buffer.
    struct FrameKey {
        const Plugin::Acquisition::Frame* frame = nullptr;
        quint64 frameId = 0;
        quint64 timestampNs = 0;
    };
    FrameKey m_submitted;
    Plugin::Acquisition::FramePtr m_shownFrame;
    QString m_conversionError;
    QString m_actionError;         // shown until the next frame
    AcquisitionActions* m_actions; // child
    QToolBar* m_toolBar;           // child
    ImageView* m_view;             // child
    QLabel* m_frameLabel;          // child
    QLabel* m_cursorLabel;         // child
    QLabel* m_ratesLabel;          // child
    QLabel* m_countsLabel;         // child
    QGridLayout* m_statusLines;    // owned by the panel's layout
    bool m_twoColumns = false;
    bool m_statusArranged = false;
    QAction* m_saveImage;  // child
    QAction* m_fit;        // child
    QAction* m_actualSize; // child
    QTimer* m_meterTimer;  // child
    StreamMeter m_meter;
    QElapsedTimer m_clock;
};

} // namespace VantoViewer
