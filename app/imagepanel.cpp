#include "imagepanel.h"

#include "acquisitionactions.h"
#include "conversionsettings.h"
#include "frameconverter.h"
#include "histogram.h"
#include "imageview.h"
#include "pixelreader.h"

#include <acquisition/iacquisition.h>
#include <acquisition/iacquisitionservice.h>
#include <acquisition/pixelformat.h>
#include <camerapool/ideviceparameterservice.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QEvent>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace VantoViewer {

using Plugin::Acquisition::FramePtr;
using Plugin::Acquisition::IAcquisition;

namespace {
constexpr char CONVERTER_ROOT[] = "@ImageFormatConverter/Root";
} // namespace

ImagePanel::ImagePanel(QWidget* parent)
    : QWidget(parent), m_actions(new AcquisitionActions(this)), m_toolBar(new QToolBar(this)),
      m_view(new ImageView(this)), m_frameLabel(new QLabel(this)), m_cursorLabel(new QLabel(this)),
      m_ratesLabel(new QLabel(this)), m_countsLabel(new QLabel(this)),
      m_saveImage(new QAction(tr("Save Image..."), this)), m_fit(new QAction(tr("Fit"), this)),
      m_actualSize(new QAction(tr("100 %"), this)), m_meterTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("VantoViewer.ImagePanel"));
    buildToolBar();
    m_frameLabel->setObjectName(QStringLiteral("VantoViewer.ImagePanel.Frame"));
    m_ratesLabel->setObjectName(QStringLiteral("VantoViewer.ImagePanel.Rates"));
    m_cursorLabel->setObjectName(QStringLiteral("VantoViewer.ImagePanel.Cursor"));
    m_countsLabel->setObjectName(QStringLiteral("VantoViewer.ImagePanel.Counts"));
    m_cursorLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // What the frame is, how fast frames come, the pixel under the cursor and what was lost:
    // see arrangeStatusLines. A longer text never changes the panel's size: the view would
    // move under the cursor.
    m_statusLines = new QGridLayout;
    m_statusLines->setContentsMargins(6, 2, 6, 2);
    m_statusLines->setVerticalSpacing(0);
    for (QLabel* label : {m_frameLabel, m_ratesLabel, m_cursorLabel, m_countsLabel}) {
        label->setMinimumWidth(1);
        label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_view, 1);
    layout->addLayout(m_statusLines);
    arrangeStatusLines();

    connect(m_view, &ImageView::hoveredPixelChanged, this, &ImagePanel::updateCursorText);
    connect(m_actions, &AcquisitionActions::failed, this, [this](const QString& message) {
        m_actionError = message;
        updateStatus();
    });
    connect(m_meterTimer, &QTimer::timeout, this, [this]() {
        if (m_acquisition) {
            m_meter.sample(m_acquisition->statistics(), m_view->paintedCount(), m_clock.elapsed());
        }
        updateStatus();
    });
    m_clock.start();
    m_meterTimer->start(METER_INTERVAL_MS);
    showIdleMessage();
}

ImagePanel::~ImagePanel() = default;

void ImagePanel::buildToolBar()
{
    m_toolBar->setObjectName(QStringLiteral("VantoViewer.ImagePanel.ToolBar"));
    m_toolBar->setWindowTitle(tr("Acquisition"));
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_toolBar->addActions(m_actions->actions());
    m_toolBar->addSeparator();
    m_fit->setObjectName(QStringLiteral("VantoViewer.Image.Fit"));
    m_fit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
    m_actualSize->setObjectName(QStringLiteral("VantoViewer.Image.ActualSize"));
    m_actualSize->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_1));
    m_saveImage->setObjectName(QStringLiteral("VantoViewer.Image.Save"));
    m_saveImage->setShortcut(QKeySequence::Save);
    m_saveImage->setEnabled(false);
    for (QAction* action : {m_fit, m_actualSize, m_saveImage}) {
        action->setToolTip(action->text().remove(QStringLiteral("...")) + QStringLiteral(" (") +
                           action->shortcut().toString(QKeySequence::NativeText) +
                           QLatin1Char(')'));
    }
    m_fit->setStatusTip(tr("Shows the whole image"));
    m_actualSize->setStatusTip(tr("Shows one screen pixel per image pixel"));
    m_saveImage->setStatusTip(tr("Writes the image shown as PNG, TIFF or raw bytes"));
    connect(m_fit, &QAction::triggered, m_view, &ImageView::fit);
    connect(m_actualSize, &QAction::triggered, m_view, &ImageView::showActualSize);
    connect(m_saveImage, &QAction::triggered, this, &ImagePanel::askAndSave);
    m_toolBar->addAction(m_fit);
    m_toolBar->addAction(m_actualSize);
    m_toolBar->addSeparator();
    m_toolBar->addAction(m_saveImage);
}

void ImagePanel::setServices(Plugin::Acquisition::IAcquisitionService* acquisitions,
                             Plugin::CameraPool::IDeviceParameterService* devices)
{
    m_acquisitions = acquisitions;
    m_devices = devices;
}

void ImagePanel::setActiveDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (info == m_info && (info.isNull() || m_collection)) {
        return;
    }
    m_info = info;
    m_collection = info && m_devices ? m_devices->getParameterCollection(info) : nullptr;
    IAcquisition* acquisition =
        info && m_acquisitions ? m_acquisitions->getAcquisition(info) : nullptr;
    m_actions->setCamera(acquisition, m_collection);
    watchAcquisition(acquisition);
    newConverter(m_collection);
    m_shownFrame.reset();
    m_submitted = FrameKey();
    m_conversionError.clear();
    m_saveImage->setEnabled(false);
    Q_EMIT histogramCleared();
    showIdleMessage();
    resetMeter();
    // The camera may have acquired while another one was shown: its last image shows at once.
    takeLatestFrame();
}

void ImagePanel::watchAcquisition(IAcquisition* acquisition)
{
    if (m_acquisition) {
        disconnect(m_acquisition, nullptr, this, nullptr);
    }
    m_acquisition = acquisition;
    if (!m_acquisition) {
        return;
    }
    connect(m_acquisition, &IAcquisition::frameReady, this, &ImagePanel::takeLatestFrame);
    connect(m_acquisition, &IAcquisition::stateChanged, this, [this](IAcquisition::State state) {
        if (state == IAcquisition::Starting) {
            resetMeter();
        }
        updateStatus();
    });
    connect(m_acquisition, &IAcquisition::failed, this, [this](const QString& message) {
        m_view->setMessage(tr("The acquisition failed: %1").arg(message));
        Q_EMIT histogramCleared();
    });
}

void ImagePanel::newConverter(
    const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    if (m_converter) {
        disconnect(m_converter, nullptr, this, nullptr);
        m_converter->deleteLater();
    }
    m_converter = new FrameConverter(this);
    connect(m_converter, &FrameConverter::converted, this, &ImagePanel::onConverted);
    connect(m_converter, &FrameConverter::failed, this, &ImagePanel::onConversionFailed);
    if (collection) {
        watchConversionFeatures(collection, QLatin1String(CONVERTER_ROOT));
    }
    applyConversionSettings();
}

void ImagePanel::watchConversionFeatures(
    const QSharedPointer<ParameterCollection::IParameterCollection>& collection,
    const QString& category)
{
    for (const QString& name : collection->getChildren(category)) {
        if (const auto parameter = collection->getParameter(name)) {
            // The converter goes with the camera, and these connections with it.
            connect(parameter.data(), &ParameterCollection::IParameter::parameterDataChanged,
                    m_converter, [this]() {
                        applyConversionSettings();
                        // A stopped camera's image follows the change too.
                        if (m_shownFrame && m_converter) {
                            m_converter->submit(m_shownFrame);
                        }
                    });
        }
        watchConversionFeatures(collection, name);
    }
}

void ImagePanel::applyConversionSettings()
{
    if (m_converter) {
        m_converter->setSettings(m_collection ? ConversionSettings::fromCollection(*m_collection)
                                              : ConversionSettings());
    }
}

void ImagePanel::takeLatestFrame()
{
    const FramePtr frame = m_acquisition ? m_acquisition->latestFrame() : nullptr;
    if (!frame || !m_converter) {
        return;
    }
    const FrameKey key{frame.get(), frame->frameId(), frame->timestampNs()};
    if (key.frame == m_submitted.frame && key.frameId == m_submitted.frameId &&
        key.timestampNs == m_submitted.timestampNs) {
        return;
    }
    m_submitted = key;
    m_converter->submit(frame);
}

void ImagePanel::onConverted(const FramePtr& frame, const QImage& image, const Histogram& histogram)
{
    m_shownFrame = frame;
    m_conversionError.clear();
    m_saveImage->setEnabled(true);
    m_view->setImage(image);
    Q_EMIT histogramChanged(histogram);
    updateCursorText(m_view->hoveredPixel());
    updateStatus();
}

void ImagePanel::onConversionFailed(const FramePtr& frame, const QString& message)
{
    // The raw bytes can still be saved; only the picture can't be made.
    m_shownFrame = frame;
    m_conversionError = message;
    m_saveImage->setEnabled(true);
    m_view->setMessage(message);
    Q_EMIT histogramCleared();
    updateStatus();
}

void ImagePanel::showIdleMessage()
{
    if (!m_info) {
        m_view->setMessage(tr("No camera is open. Open one in the Devices pane or the Camera "
                              "menu."));
    } else if (!m_acquisition) {
        m_view->setMessage(tr("This camera has no stream to show."));
    } else {
        m_view->setMessage(
            tr("Press Continuous Shot (%1) or Single Shot (%2) to see the camera's image.")
                .arg(m_actions->continuousShot()->shortcut().toString(QKeySequence::NativeText),
                     m_actions->singleShot()->shortcut().toString(QKeySequence::NativeText)));
    }
}

void ImagePanel::resetMeter()
{
    m_meter.reset(m_acquisition ? m_acquisition->statistics() : Plugin::Acquisition::Statistics(),
                  m_view->paintedCount(), m_clock.elapsed());
    updateStatus();
}

QString ImagePanel::statusText() const
{
    QStringList parts{m_frameLabel->text(), m_ratesLabel->text(), m_countsLabel->text()};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

QString ImagePanel::cursorText() const
{
    return m_cursorLabel->text();
}

QString ImagePanel::frameText(quint32 pixelFormat, quint32 width, quint32 height)
{
    return tr("%1, %2 × %3 pixels")
        .arg(Plugin::Acquisition::PixelFormat::name(pixelFormat))
        .arg(width)
        .arg(height);
}

QString ImagePanel::ratesText(double receivedFps, double displayedFps, double megabytesPerSecond)
{
    return tr("%1 fps received, %2 displayed, %3 MB/s")
        .arg(receivedFps, 0, 'f', 1)
        .arg(displayedFps, 0, 'f', 1)
        .arg(megabytesPerSecond, 0, 'f', 1);
}

QString ImagePanel::countsText(quint64 incomplete, quint64 dropped)
{
    return tr("incomplete %1, dropped for display %2").arg(incomplete).arg(dropped);
}

QString ImagePanel::pixelText(int x, int y, const QString& value)
{
    return tr("x %1, y %2: %3").arg(x).arg(y).arg(value);
}

void ImagePanel::arrangeStatusLines()
{
    // Decided by the panel's width against the longest texts that can come, never by the
    // texts of the moment: the lines would jump between frames.
    const QFontMetrics metrics(m_frameLabel->font());
    const int firstLine =
        metrics.horizontalAdvance(
            frameText(Plugin::Acquisition::PixelFormat::fromName(QStringLiteral("BayerRG12Packed")),
                      99999, 99999)) +
        metrics.horizontalAdvance(ratesText(9999.9, 999.9, 9999.9));
    const int secondLine =
        metrics.horizontalAdvance(pixelText(99999, 99999, QStringLiteral("R 4095 G 4095 B 4095"))) +
        metrics.horizontalAdvance(countsText(999999, 999999));
    const int side = qMax(firstLine, secondLine);
    const QMargins margins = m_statusLines->contentsMargins();
    const bool twoColumns =
        side + 3 * metrics.averageCharWidth() + margins.left() + margins.right() <= width();
    if (m_statusArranged && twoColumns == m_twoColumns) {
        return;
    }
    m_statusArranged = true;
    m_twoColumns = twoColumns;
    const QList<QLabel*> labels{m_frameLabel, m_ratesLabel, m_cursorLabel, m_countsLabel};
    for (QLabel* label : labels) {
        m_statusLines->removeWidget(label);
    }
    if (twoColumns) {
        // Two lines of two: what the frame is and how fast frames come, then the pixel under
        // the cursor and what was lost.
        m_statusLines->setColumnStretch(1, 1);
        for (int i = 0; i < labels.size(); ++i) {
            m_statusLines->addWidget(labels.at(i), i / 2, i % 2 ? 2 : 0,
                                     (i % 2 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        }
    } else {
        m_statusLines->setColumnStretch(1, 0);
        for (int i = 0; i < labels.size(); ++i) {
            m_statusLines->addWidget(labels.at(i), i, 0, 1, 3, Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
}

void ImagePanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrangeStatusLines();
}

void ImagePanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LanguageChange) {
        m_statusArranged = false;
        arrangeStatusLines();
    }
}

void ImagePanel::updateStatus()
{
    QString rates = m_actionError;
    QString counts;
    if (m_acquisition) {
        if (rates.isEmpty() && m_meter.hasRates()) {
            rates = ratesText(m_meter.receivedFps(), m_meter.displayedFps(),
                              m_meter.megabytesPerSecond());
        }
        counts = countsText(m_meter.incomplete(), m_meter.droppedForDisplay());
    }
    setText(m_ratesLabel, rates);
    setText(m_countsLabel, counts);
    setText(m_frameLabel, m_shownFrame ? frameText(m_shownFrame->pixelFormat(),
                                                   m_shownFrame->width(), m_shownFrame->height())
                                       : QString());
}

void ImagePanel::setText(QLabel* label, const QString& text)
{
    // Unchanged texts are not set again: every frame would lay the labels out anew.
    if (label->text() != text) {
        label->setText(text);
    }
}

void ImagePanel::updateCursorText(const QPoint& pixel)
{
    QString text;
    if (m_shownFrame && pixel.x() >= 0 && pixel.y() >= 0) {
        const PixelValue value = PixelReader::read(*m_shownFrame, pixel.x(), pixel.y());
        if (value.valid) {
            text = pixelText(pixel.x(), pixel.y(), value.text());
        }
    }
    setText(m_cursorLabel, text);
}

bool ImagePanel::saveImage(const QString& path, ImageWriter::Format format, QString* error) const
{
    if (!m_shownFrame) {
        *error = tr("There is no image to save.");
        return false;
    }
    return ImageWriter::write(*m_shownFrame, path, format, error);
}

void ImagePanel::askAndSave()
{
    if (!m_shownFrame) {
        return;
    }
    const QString png = tr("PNG image (*.png)");
    const QString tiff = tr("TIFF image (*.tif *.tiff)");
    const QString raw = tr("Raw bytes with a side file (*.raw)");
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    const QString suggested =
        QDir(folder).filePath(QStringLiteral("frame-%1.png").arg(m_shownFrame->frameId()));
    QString chosen = png;
    QString path = QFileDialog::getSaveFileName(
        this, tr("Save Image"), suggested, QStringList({png, tiff, raw}).join(QStringLiteral(";;")),
        &chosen);
    if (path.isEmpty()) {
        return;
    }
    // A suffix the user typed says what the file is; without one, the chosen filter does.
    ImageWriter::Format format = ImageWriter::Png;
    if (!ImageWriter::formatOf(path, &format)) {
        QString suffix = QStringLiteral("png");
        if (chosen == tiff) {
            format = ImageWriter::Tiff;
            suffix = QStringLiteral("tif");
        } else if (chosen == raw) {
            format = ImageWriter::Raw;
            suffix = QStringLiteral("raw");
        }
        path += QLatin1Char('.') + suffix;
    }
    QString error;
    if (!saveImage(path, format, &error)) {
        QMessageBox::warning(this, tr("Save Image"),
                             tr("Cannot save %1: %2").arg(QDir::toNativeSeparators(path), error));
    }
}

} // namespace VantoViewer
