#include "apptestsupport.h"

#include "acquisitionactions.h"
#include "devicespane.h"
#include "histogram.h"
#include "histogrampanel.h"
#include "imagepanel.h"
#include "imageview.h"
#include "imagewriter.h"
#include "syntheticacquisition.h"

#include <acquisition/pixelformat.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <acquisitionservice.h>
#include <camerapool.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QDirIterator>
#include <QDockWidget>
#include <QFile>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using Plugin::Acquisition::FramePtr;
using Plugin::Acquisition::IAcquisition;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;
using VantoViewer::ImagePanel;
using VantoViewer::ImageView;

namespace {

// A Mono12 frame in 16-bit little-endian containers: pixel (x, y) holds 100 * y + x + 7.
FramePtr mono12Frame(quint32 width, quint32 height, quint64 frameId = 1)
{
    QByteArray bytes;
    for (quint32 y = 0; y < height; ++y) {
        for (quint32 x = 0; x < width; ++x) {
            const quint16 value = quint16(100 * y + x + 7);
            bytes.append(char(value & 0xFF));
            bytes.append(char(value >> 8));
        }
    }
    return syntheticFrame(PixelFormat::Mono12, width, height, bytes, frameId);
}

FramePtr mono8Frame(quint32 width, quint32 height, char value, quint64 frameId = 1)
{
    return syntheticFrame(PixelFormat::Mono8, width, height, QByteArray(int(width * height), value),
                          frameId);
}

// The built-in camera's grey horizontal ramp in Mono8: (((x << 6) & 0xFFFF) >> 8), the
// simulated camera's documented formula at offset 0 without binning.
quint32 rampValue(quint32 x)
{
    return ((x << 6) & 0xFFFF) >> 8;
}

void hover(ImageView* view, const QPoint& pixel)
{
    const QPointF at = view->viewPointOf(QPointF(pixel) + QPointF(0.5, 0.5));
    QMouseEvent move(QEvent::MouseMove, at, view->mapToGlobal(at.toPoint()), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view, &move);
}

} // namespace

class TestImagePanel : public QObject {
    Q_OBJECT

    QSharedPointer<Backend::CameraPool> m_pool;
    QSharedPointer<Plugin::CameraPool::IBaseInfo> m_first;
    QSharedPointer<Plugin::CameraPool::IBaseInfo> m_second;
    SyntheticAcquisitionService m_service;
    std::unique_ptr<SyntheticAcquisition> m_firstAcquisition;
    std::unique_ptr<SyntheticAcquisition> m_secondAcquisition;
    std::unique_ptr<ImagePanel> m_panel;
    std::unique_ptr<Backend::AcquisitionService> m_backendService;
    std::unique_ptr<ImagePanel> m_backendPanel; // on m_backendService

    // A panel shown on the first camera, with the backend's own acquisitions.
    ImagePanel& panelOnTheFirstCamera()
    {
        m_backendService = std::make_unique<Backend::AcquisitionService>(m_pool.data());
        m_backendPanel = std::make_unique<ImagePanel>();
        m_backendPanel->setServices(m_backendService.get(), m_pool.data());
        m_backendPanel->resize(800, 600);
        m_backendPanel->show();
        m_backendPanel->setActiveDevice(m_first);
        return *m_backendPanel;
    }

    // The whole window with the plug-in, its settings in `settings`, instead of the lone panel.
    QString startWindow(const QTemporaryDir& settings,
                        std::unique_ptr<VantoViewer::PluginManager>& plugins,
                        std::unique_ptr<VantoViewer::MainWindow>& window)
    {
        isolateSettings(settings.path());
        m_panel.reset();
        return startTestHost(m_pool, plugins, window);
    }

    // Writes a feature of the first camera and waits until the camera has taken it.
    bool write(const QString& feature, const QVariant& value)
    {
        const auto parameter = m_pool->getParameterCollection(m_first)->getParameter(
            QStringLiteral("@CameraDevice/") + feature);
        parameter->setValue(value);
        return QTest::qWaitFor(
            [&parameter, &value] { return parameter->getParameterData()->value == value; }, 5000);
    }

    // Delivers and waits until the view has painted it.
    bool show(SyntheticAcquisition& acquisition, const FramePtr& frame)
    {
        QSignalSpy painted(m_panel->view(), &ImageView::imagePainted);
        acquisition.deliver(frame);
        return painted.wait(5000) && m_panel->shownFrame() == frame;
    }

private Q_SLOTS:
    void init()
    {
        m_pool = QSharedPointer<Backend::CameraPool>::create();
        m_first = m_pool->openSimulated();
        m_second = m_pool->openSimulated();
        m_firstAcquisition = std::make_unique<SyntheticAcquisition>();
        m_secondAcquisition = std::make_unique<SyntheticAcquisition>();
        m_service.acquisitions = {{m_first.data(), m_firstAcquisition.get()},
                                  {m_second.data(), m_secondAcquisition.get()}};
        m_panel = std::make_unique<ImagePanel>();
        m_panel->setServices(&m_service, m_pool.data());
        m_panel->resize(640, 480);
        m_panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
        m_panel->setActiveDevice(m_first);
    }
    void cleanup()
    {
        m_panel.reset();
        m_backendPanel.reset();
        m_backendService.reset();
        m_firstAcquisition.reset();
        m_secondAcquisition.reset();
        m_pool->closeAll();
        m_pool.reset();
    }

    void showsTheRawValueUnderTheCursor()
    {
        // Given a 12-bit frame on screen
        m_firstAcquisition->start(IAcquisition::Continuous);
        const FramePtr frame = mono12Frame(40, 30);
        QVERIFY(show(*m_firstAcquisition, frame));

        // When the cursor rests on pixel (13, 21)
        hover(m_panel->view(), QPoint(13, 21));

        // Then the line under the image gives the camera's own value there
        const uchar* bytes = frame->data() + 2 * (21 * 40 + 13);
        const quint32 raw = bytes[0] | (bytes[1] << 8);
        QCOMPARE(raw, quint32(2120));
        QCOMPARE(m_panel->cursorText(), QStringLiteral("x 13, y 21: 2120 (12-bit)"));

        // and the next frame's value at the same place once it arrives
        QVERIFY(show(*m_firstAcquisition, mono8Frame(40, 30, char(77), 2)));
        QCOMPARE(m_panel->cursorText(), QStringLiteral("x 13, y 21: 77 (8-bit)"));
    }

    void showsColourValuesChannelByChannel()
    {
        QByteArray rgb;
        for (int i = 0; i < 4 * 4; ++i) {
            rgb.append(char(12)).append(char(200)).append(char(3));
        }
        QVERIFY(show(*m_firstAcquisition, syntheticFrame(PixelFormat::RGB8, 4, 4, rgb)));
        hover(m_panel->view(), QPoint(2, 1));
        QCOMPARE(m_panel->cursorText(), QStringLiteral("x 2, y 1: R 12 G 200 B 3"));
    }

    void aFormatThatCannotBeShownShowsWhyAndNoPicture()
    {
        QVERIFY(show(*m_firstAcquisition, mono8Frame(8, 8, char(50))));
        QVERIFY(!m_panel->view()->image().isNull());

        // A format no converter knows
        const FramePtr unknown = syntheticFrame(0x0108FFFF, 8, 8, QByteArray(64, char(50)), 2);
        m_firstAcquisition->deliver(unknown);

        QTRY_VERIFY(!m_panel->view()->message().isEmpty());
        QVERIFY(m_panel->view()->image().isNull());
        QVERIFY2(
            m_panel->view()->message().contains(PixelFormat::name(0x0108FFFF), Qt::CaseInsensitive),
            qPrintable(m_panel->view()->message()));
        QCOMPARE(m_panel->shownFrame(), unknown);
    }

    void theStatusLineGivesRatesCountsFormatAndSize()
    {
        m_firstAcquisition->start(IAcquisition::Continuous);
        QVERIFY(show(*m_firstAcquisition, mono8Frame(8, 4, char(1), 1)));
        QVERIFY(m_panel->statusText().contains(QStringLiteral("Mono8, 8 × 4 pixels")));

        // Frames the display never takes count as dropped for it, not as lost.
        for (quint64 id = 2; id <= 5; ++id) {
            m_firstAcquisition->deliver(mono8Frame(8, 4, char(id), id));
        }
        QTRY_VERIFY_WITH_TIMEOUT(m_panel->statusText().contains(QStringLiteral("fps received")),
                                 10000);
        QVERIFY(m_panel->statusText().contains(QStringLiteral("MB/s")));
        QVERIFY(m_panel->statusText().contains(QStringLiteral("incomplete 0,")));
        const quint64 painted = m_panel->view()->paintedCount();
        QVERIFY(m_panel->statusText().contains(
            QStringLiteral("dropped for display %1").arg(5 - painted)));
    }

    void theStatusTextsShowWholeAtAnyWidth()
    {
        m_firstAcquisition->start(IAcquisition::Continuous);
        QVERIFY(show(*m_firstAcquisition, mono8Frame(8, 4, char(1), 1)));
        for (quint64 id = 2; id <= 5; ++id) {
            m_firstAcquisition->deliver(mono8Frame(8, 4, char(id), id));
        }
        QTRY_VERIFY_WITH_TIMEOUT(m_panel->statusText().contains(QStringLiteral("fps received")),
                                 10000);
        const auto frame =
            m_panel->findChild<QLabel*>(QStringLiteral("VantoViewer.ImagePanel.Frame"));
        const auto rates =
            m_panel->findChild<QLabel*>(QStringLiteral("VantoViewer.ImagePanel.Rates"));
        const auto counts =
            m_panel->findChild<QLabel*>(QStringLiteral("VantoViewer.ImagePanel.Counts"));
        QVERIFY(frame && rates && counts);
        // From a narrow panel, as beside the docks at 1280 x 800, to a wide one, and back
        for (const int width : {420, 1600, 590}) {
            m_panel->resize(width, 480);
            QCoreApplication::processEvents();
            QCOMPARE(m_panel->statusInTwoColumns(), width >= 1600);
            for (QLabel* label : {frame, rates, counts}) {
                // Then every text has the room it needs and no two cover each other
                QVERIFY2(label->width() >= label->sizeHint().width(),
                         qPrintable(QStringLiteral("%1 px: \"%2\" in %3 px")
                                        .arg(width)
                                        .arg(label->text())
                                        .arg(label->width())));
                QVERIFY(m_panel->rect().contains(label->geometry()));
            }
            QVERIFY(!frame->geometry().intersects(rates->geometry()));
            QVERIFY(!rates->geometry().intersects(counts->geometry()));
        }
    }

    void eachCameraKeepsItsAcquisitionAndItsImage()
    {
        // Given the first camera acquiring, on screen
        m_firstAcquisition->start(IAcquisition::Continuous);
        const FramePtr firstFrame = mono8Frame(8, 8, char(10));
        QVERIFY(show(*m_firstAcquisition, firstFrame));
        QSignalSpy cleared(m_panel.get(), &ImagePanel::histogramCleared);

        // When the second camera becomes the active one
        m_panel->setActiveDevice(m_second);

        // Then the first goes on acquiring, unseen, and the second shows nothing yet
        QCOMPARE(m_firstAcquisition->state(), IAcquisition::Acquiring);
        QCOMPARE(m_firstAcquisition->stops, 0);
        QVERIFY(m_panel->view()->image().isNull());
        QVERIFY(!m_panel->shownFrame());
        QCOMPARE(cleared.count(), 1);
        QVERIFY(m_panel->acquisitionActions()->continuousShot()->isEnabled());
        // A frame of the first camera, then one of the second: only the second one shows (an
        // idle converter would have taken the first at once, and shown it first).
        QSignalSpy histograms(m_panel.get(), &ImagePanel::histogramChanged);
        const FramePtr unseen = mono8Frame(8, 8, char(20), 2);
        m_firstAcquisition->deliver(unseen);
        m_secondAcquisition->start(IAcquisition::Continuous);
        const FramePtr secondFrame = mono8Frame(16, 16, char(30), 1);
        QVERIFY(show(*m_secondAcquisition, secondFrame));
        QCOMPARE(histograms.count(), 1);
        m_secondAcquisition->stop();

        // and going back shows the first camera's latest image at once
        QSignalSpy painted(m_panel->view(), &ImageView::imagePainted);
        m_panel->setActiveDevice(m_first);
        QVERIFY(painted.wait());
        QCOMPARE(m_panel->shownFrame(), unseen);
        QVERIFY(m_panel->acquisitionActions()->stop()->isEnabled());
    }

    void givesTheHistogramOfTheShownFrame()
    {
        QSignalSpy histograms(m_panel.get(), &ImagePanel::histogramChanged);
        QVERIFY(show(*m_firstAcquisition, mono12Frame(10, 2)));
        QVERIFY(!histograms.isEmpty());
        const auto histogram = histograms.last().at(0).value<VantoViewer::Histogram>();
        QCOMPARE(histogram.channelCount(), 1);
        QCOMPARE(histogram.minimum(0), quint32(7));
        QCOMPARE(histogram.maximum(0), quint32(116));
    }

    void savesTheShownFrame()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("shot.raw"));
        QString error;
        QVERIFY(!m_panel->saveImage(path, VantoViewer::ImageWriter::Raw, &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(!m_panel->saveImageAction()->isEnabled());

        const FramePtr frame = mono12Frame(6, 5);
        QVERIFY(show(*m_firstAcquisition, frame));
        QVERIFY(m_panel->saveImageAction()->isEnabled());
        QVERIFY2(m_panel->saveImage(path, VantoViewer::ImageWriter::Raw, &error),
                 qPrintable(error));

        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 QByteArray(reinterpret_cast<const char*>(frame->data()), int(frame->size())));
    }

    // End to end: the built-in camera's own stream, through the backend's acquisition.
    void continuousShotShowsTheTestPatternAndAWidthChange()
    {
        ImagePanel& panel = panelOnTheFirstCamera();
        QVERIFY(write(QStringLiteral("PixelFormat"), QStringLiteral("Mono8")));
        QVERIFY(write(QStringLiteral("TestPattern"), QStringLiteral("GreyHorizontalRamp")));

        // When Continuous Shot is pressed
        panel.acquisitionActions()->continuousShot()->trigger();

        // Then frames of the ramp show, pixel for pixel
        QTRY_VERIFY_WITH_TIMEOUT(panel.view()->paintedCount() >= 2, 20000);
        const FramePtr frame = panel.shownFrame();
        QVERIFY(frame);
        QCOMPARE(frame->pixelFormat(), PixelFormat::Mono8);
        QCOMPARE(panel.view()->image().width(), int(frame->width()));
        for (quint32 y : {quint32(0), frame->height() / 2, frame->height() - 1}) {
            for (quint32 x = 0; x < frame->width(); ++x) {
                QCOMPARE(quint32(frame->data()[y * frame->width() + x]), rampValue(x));
            }
        }
        hover(panel.view(), QPoint(301, 17));
        QTRY_VERIFY(
            panel.cursorText().startsWith(QStringLiteral("x 301, y 17: %1 ").arg(rampValue(301))));

        // and after Stop and a new Width, the next frames have the new width
        panel.acquisitionActions()->stop()->trigger();
        const auto acquisition = panel.acquisitionActions()->acquisition();
        QTRY_COMPARE(acquisition->state(), IAcquisition::Idle);
        QVERIFY(write(QStringLiteral("Width"), qint64(640)));
        panel.acquisitionActions()->continuousShot()->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(panel.shownFrame() && panel.shownFrame()->width() == 640, 20000);
        QCOMPARE(panel.view()->image().width(), 640);
        QTRY_VERIFY(panel.statusText().contains(QStringLiteral("Mono8, 640 × ")));
        panel.acquisitionActions()->stop()->trigger();
        QTRY_COMPARE(acquisition->state(), IAcquisition::Idle);
    }

    void vendorDescriptionsShowAtTheirOwnSizeAndFormat()
    {
        QDirIterator it(QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR")) +
                            QStringLiteral("/genicam"),
                        {QStringLiteral("*.xml")}, QDir::Files);
        int files = 0;
        while (it.hasNext()) {
            const QString file = it.next();
            ++files;
            // Given a vendor description as it powers on
            const auto camera = m_pool->openSimulated(file);
            const auto collection = m_pool->getParameterCollection(camera);
            const auto width = qSharedPointerObjectCast<ParameterCollection::IIntegerParameter>(
                collection->getParameter(QStringLiteral("@CameraDevice/Width")));
            const auto height = qSharedPointerObjectCast<ParameterCollection::IIntegerParameter>(
                collection->getParameter(QStringLiteral("@CameraDevice/Height")));
            QVERIFY2(width && height, qPrintable(file));
            Backend::AcquisitionService service(m_pool.data());
            ImagePanel panel;
            panel.setServices(&service, m_pool.data());
            panel.resize(800, 600);
            panel.show();
            panel.setActiveDevice(camera);

            // When Continuous Shot is pressed
            panel.acquisitionActions()->continuousShot()->trigger();

            // Then its frames show at the description's own size
            QTRY_VERIFY_WITH_TIMEOUT(panel.view()->paintedCount() >= 2, 20000);
            const FramePtr frame = panel.shownFrame();
            QVERIFY2(frame, qPrintable(file));
            QCOMPARE(qint64(frame->width()), width->getValue());
            QCOMPARE(qint64(frame->height()), height->getValue());
            QCOMPARE(panel.view()->image().width(), int(frame->width()));
            QCOMPARE(panel.view()->image().height(), int(frame->height()));
            QTRY_VERIFY2(
                panel.statusText().contains(QStringLiteral("%1, %2 × %3")
                                                .arg(PixelFormat::name(frame->pixelFormat()))
                                                .arg(frame->width())
                                                .arg(frame->height())),
                qPrintable(panel.statusText()));
            qInfo("%s: %s", qPrintable(QFileInfo(file).fileName()), qPrintable(panel.statusText()));
            const auto acquisition = panel.acquisitionActions()->acquisition();
            panel.acquisitionActions()->stop()->trigger();
            QTRY_COMPARE(acquisition->state(), IAcquisition::Idle);
        }
        if (files == 0) {
            QSKIP("no vendor descriptions: the shared genicam directory is absent");
        }
    }

    void stopStopsTheFrameCount()
    {
        ImagePanel& panel = panelOnTheFirstCamera();
        IAcquisition* acquisition = panel.acquisitionActions()->acquisition();
        QVERIFY(acquisition);
        panel.acquisitionActions()->continuousShot()->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(panel.view()->paintedCount() >= 3, 20000);

        panel.acquisitionActions()->stop()->trigger();
        QTRY_COMPARE(acquisition->state(), IAcquisition::Idle);
        const auto counted = acquisition->statistics();
        QSignalSpy frames(acquisition, &IAcquisition::frameReady);

        // No frame comes any more, and none is counted.
        QVERIFY(!frames.wait(2000));
        QCOMPARE(acquisition->statistics().completed, counted.completed);
        QCOMPARE(acquisition->statistics().incomplete, counted.incomplete);
        QVERIFY(counted.completed >= 3);
        QVERIFY(panel.acquisitionActions()->continuousShot()->isEnabled());
        QVERIFY(!panel.acquisitionActions()->stop()->isEnabled());
    }

    void softwareTriggerGivesOneFrame()
    {
        ImagePanel& panel = panelOnTheFirstCamera();
        QVERIFY(write(QStringLiteral("TriggerSelector"), QStringLiteral("FrameStart")));
        QVERIFY(write(QStringLiteral("TriggerSource"), QStringLiteral("Software")));
        QVERIFY(write(QStringLiteral("TriggerMode"), QStringLiteral("On")));
        QTRY_VERIFY(panel.acquisitionActions()->softwareTrigger()->isEnabled());
        IAcquisition* acquisition = panel.acquisitionActions()->acquisition();
        panel.acquisitionActions()->continuousShot()->trigger();
        QTRY_COMPARE(acquisition->state(), IAcquisition::Acquiring);
        QCOMPARE(acquisition->statistics().completed, quint64(0));

        QSignalSpy painted(panel.view(), &ImageView::imagePainted);
        panel.acquisitionActions()->softwareTrigger()->trigger();

        QVERIFY(painted.wait(10000));
        QCOMPARE(acquisition->statistics().completed, quint64(1));
        panel.acquisitionActions()->stop()->trigger();
        QTRY_COMPARE(acquisition->state(), IAcquisition::Idle);
    }

    void theWindowShowsTheActiveCamerasImage()
    {
        // Given the window with two open cameras, the first one acquiring
        QTemporaryDir settings;
        std::unique_ptr<VantoViewer::PluginManager> plugins;
        std::unique_ptr<VantoViewer::MainWindow> window;
        const QString failure = startWindow(settings, plugins, window);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
        window->addDevice(m_first);
        window->addDevice(m_second);
        window->devicesPane()->setActiveDevice(m_first);
        ImagePanel* panel = window->imagePanel();
        QCOMPARE(window->centralWidget(), panel);
        panel->acquisitionActions()->continuousShot()->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(panel->shownFrame(), 20000);
        IAcquisition* first = panel->acquisitionActions()->acquisition();

        // When the user makes the second camera the active one
        window->devicesPane()->setActiveDevice(m_second);

        // Then the panel shows the second, idle, while the first goes on acquiring
        QVERIFY(panel->acquisitionActions()->acquisition() != first);
        QVERIFY(!panel->shownFrame());
        QVERIFY(panel->acquisitionActions()->continuousShot()->isEnabled());
        QCOMPARE(first->state(), IAcquisition::Acquiring);
        const quint64 counted = first->statistics().completed;
        QTRY_VERIFY_WITH_TIMEOUT(first->statistics().completed > counted, 20000);

        // and back on the first, its newest image
        window->devicesPane()->setActiveDevice(m_first);
        QTRY_VERIFY(panel->shownFrame());
        QVERIFY(panel->acquisitionActions()->stop()->isEnabled());
        panel->acquisitionActions()->stop()->trigger();
        QTRY_COMPARE(first->state(), IAcquisition::Idle);
        window.reset();
        plugins->unloadAll();
    }

    // Pictures for the documentation, when asked for: the window at 1280 x 800 streaming the
    // built-in camera with Gain raised and selected in the feature tree; then at 1920 x 1080 on
    // the camera's scene in a colour format, with a logarithmic histogram; then a vendor's
    // description streaming.
    void screenshots()
    {
        const QString directory = QString::fromUtf8(qgetenv("NODESCOPE_SCREENSHOT_DIR"));
        if (directory.isEmpty()) {
            QSKIP("Set NODESCOPE_SCREENSHOT_DIR to write the window's pictures.");
        }
        QVERIFY(QDir().mkpath(directory));
        QTemporaryDir settings;
        std::unique_ptr<VantoViewer::PluginManager> plugins;
        std::unique_ptr<VantoViewer::MainWindow> window;
        const QString failure = startWindow(settings, plugins, window);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
        window->resize(1280, 800);
        window->addDevice(m_first);
        QVERIFY(write(QStringLiteral("Gain"), 6.0));
        ImagePanel* panel = window->imagePanel();
        panel->acquisitionActions()->continuousShot()->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(panel->statusText().contains(QStringLiteral("fps received")),
                                 20000);
        QVERIFY(window->featureTreeControl());
        window->featureTreeControl()->selectFeature(m_first, QStringLiteral("@CameraDevice/Gain"));
        QCoreApplication::processEvents();
        QVERIFY(window->grab().save(QDir(directory).filePath(QStringLiteral("vantoviewer.png"))));
        panel->acquisitionActions()->stop()->trigger();
        QTRY_COMPARE(panel->acquisitionActions()->acquisition()->state(), IAcquisition::Idle);
        QVERIFY(write(QStringLiteral("Gain"), 0.0));

        window->resize(1920, 1080);
        QVERIFY(write(QStringLiteral("PixelFormat"), QStringLiteral("BayerRG8")));
        window->histogramDock()->findChild<QCheckBox*>()->setChecked(true);
        panel->acquisitionActions()->continuousShot()->trigger();
        // The rates need a second of frames.
        QTRY_VERIFY_WITH_TIMEOUT(panel->statusText().contains(QStringLiteral("fps received")),
                                 20000);
        QTRY_VERIFY(panel->shownFrame() &&
                    panel->shownFrame()->pixelFormat() == PixelFormat::BayerRG8);
        hover(panel->view(), QPoint(300, 200));
        QTRY_VERIFY(!panel->cursorText().isEmpty());
        // The status lines take their new widths on the next turn of the event loop.
        QCoreApplication::processEvents();
        QVERIFY(window->grab().save(
            QDir(directory).filePath(QStringLiteral("vantoviewer-histogram.png"))));
        panel->acquisitionActions()->stop()->trigger();
        QTRY_COMPARE(panel->acquisitionActions()->acquisition()->state(), IAcquisition::Idle);

        // A vendor's description streaming at its simulated sensor's power-on state
        const QString vendor = QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR")) +
                               QStringLiteral("/genicam/AVT_Manta_G507B.xml");
        if (QFile::exists(vendor)) {
            window->resize(1280, 800);
            window->histogramDock()->findChild<QCheckBox*>()->setChecked(false);
            const auto camera = m_pool->openSimulated(vendor);
            window->addDevice(camera);
            window->devicesPane()->setActiveDevice(camera);
            panel->acquisitionActions()->continuousShot()->trigger();
            QTRY_VERIFY_WITH_TIMEOUT(
                panel->statusText().contains(QStringLiteral("fps received")) &&
                    panel->statusText().contains(QStringLiteral("1280 × 1024")),
                20000);
            QCoreApplication::processEvents();
            QVERIFY(window->grab().save(
                QDir(directory).filePath(QStringLiteral("vantoviewer-vendor.png"))));
            panel->acquisitionActions()->stop()->trigger();
            QTRY_COMPARE(panel->acquisitionActions()->acquisition()->state(), IAcquisition::Idle);
        } else {
            qWarning("No %s: the vendor picture is not made.", qPrintable(vendor));
        }
        window.reset();
        plugins->unloadAll();
    }

    void withoutAStreamSaysSo()
    {
        m_service.acquisitions.remove(m_second.data());
        m_panel->setActiveDevice(m_second);
        QVERIFY(!m_panel->view()->message().isEmpty());
        for (QAction* action : m_panel->acquisitionActions()->actions()) {
            QVERIFY(!action->isEnabled());
        }
        m_panel->setActiveDevice({});
        QVERIFY(!m_panel->view()->message().isEmpty());
    }
};

QTEST_MAIN(TestImagePanel)
#include "tst_imagepanel.moc"
