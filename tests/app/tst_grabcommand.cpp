#include "grabcommand.h"

#include "../fakegigecamera.h"

#include <acquisition.h>
#include <acquisitionservice.h>
#include <camerapool.h>
#include <deviceparametercollection.h>

#include <parametercollection/exception.h>
#include <parametercollection/iparameter.h>
#include <acquisition/pixelformat.h>

#include <QDirIterator>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using ParameterCollection::Exception;
using ParameterCollection::IEnumParameter;
using ParameterCollection::IIntegerParameter;
using VantoViewer::GrabCommand;

class tst_GrabCommand : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void shouldGrabFromTheBuiltInCameraAndSaveTheLastFrame();
    void shouldFailWithTheReasonWhenTooFewFramesArrive();
    void shouldGrabFromVendorDescriptions();
    void shouldGrabSaveAndDumpFromTheCommandLine();
    void shouldGrabFromTheFakeGigECameraOnTheCommandLine();

private:
    void open(const QString& file = QString());
    void set(const char* feature, const QVariant& value);
    int grab(int count, const QString& saveImage = QString(), int timeoutMs = 0);

    std::unique_ptr<Backend::CameraPool> m_pool;
    std::unique_ptr<Backend::AcquisitionService> m_service;
    QSharedPointer<Backend::CameraInfo> m_info;
    QString m_out;
    QString m_err;
};

namespace {

const QRegularExpression kGrabbedLine(QStringLiteral(
    R"(^grabbed (\d+) frames in (\d+) ms \(([0-9.]+) fps\), incomplete (\d+), underruns (\d+)$)"));

QString sharedGenICamDir()
{
    return QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR")) + QStringLiteral("/genicam");
}

} // namespace

void tst_GrabCommand::init()
{
    m_pool = std::make_unique<Backend::CameraPool>();
    m_service = std::make_unique<Backend::AcquisitionService>(m_pool.get());
    m_out.clear();
    m_err.clear();
}

void tst_GrabCommand::cleanup()
{
    m_info.reset();
    m_service.reset();
    m_pool.reset();
}

void tst_GrabCommand::open(const QString& file)
{
    m_info = m_pool->openSimulated(file);
}

void tst_GrabCommand::set(const char* feature, const QVariant& value)
{
    auto collection = qSharedPointerObjectCast<Backend::DeviceParameterCollection>(
        m_pool->getParameterCollection(m_info));
    const auto parameter =
        collection->getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(feature));
    QVERIFY2(parameter, feature);
    parameter->setValue(value);
    collection->waitForDevice();
}

int tst_GrabCommand::grab(int count, const QString& saveImage, int timeoutMs)
{
    QTextStream out(&m_out);
    QTextStream err(&m_err);
    GrabCommand command(out, err);
    if (timeoutMs > 0) {
        command.setFrameTimeout(timeoutMs);
    }
    return command.run(*m_service->getAcquisition(m_info), count, saveImage);
}

void tst_GrabCommand::shouldGrabFromTheBuiltInCameraAndSaveTheLastFrame()
{
    open();
    set("Width", 256);
    set("Height", 128);
    set("PixelFormat", QStringLiteral("Mono12"));
    // A still pattern: every frame holds the same values, so the one saved can be checked
    // against the last one the acquisition kept.
    set("TestPattern", QStringLiteral("GreyHorizontalRamp"));
    QTemporaryDir dir;
    const QString png = dir.filePath(QStringLiteral("last.png"));
    QCOMPARE(grab(10, png), GrabCommand::EXIT_OK);
    const auto match = kGrabbedLine.match(m_out.trimmed());
    QVERIFY2(match.hasMatch(), qPrintable(m_out));
    QVERIFY(match.captured(1).toInt() >= 10);
    QCOMPARE(match.captured(4), QStringLiteral("0"));
    QCOMPARE(match.captured(5), QStringLiteral("0"));
    QVERIFY2(m_err.isEmpty(), qPrintable(m_err));
    const QImage saved(png);
    QCOMPARE(saved.size(), QSize(256, 128));
    QCOMPARE(saved.format(), QImage::Format_Grayscale16); // deeper than 8 bits
    // The camera's own 12-bit values, as the window's Save Image writes them.
    const auto frame = m_service->getAcquisition(m_info)->latestFrame();
    QVERIFY(frame);
    QCOMPARE(frame->pixelFormat(), Plugin::Acquisition::PixelFormat::Mono12);
    const auto* values = reinterpret_cast<const quint16*>(frame->data());
    quint16 brightest = 0;
    for (int y = 0; y < saved.height(); ++y) {
        const auto* line = reinterpret_cast<const quint16*>(saved.constScanLine(y));
        for (int x = 0; x < saved.width(); ++x) {
            QCOMPARE(line[x], values[y * saved.width() + x]);
            brightest = qMax(brightest, line[x]);
        }
    }
    QVERIFY(brightest > 255 && brightest <= 4095); // a ramp in 12 bits, unscaled
    qInfo("%s", qPrintable(m_out.trimmed()));
}

void tst_GrabCommand::shouldFailWithTheReasonWhenTooFewFramesArrive()
{
    open();
    set("Width", 64);
    set("Height", 64);
    // Frames only on a trigger, and none comes.
    set("TriggerSelector", QStringLiteral("FrameStart"));
    set("TriggerMode", QStringLiteral("On"));
    QCOMPARE(grab(5, QString(), 300), GrabCommand::EXIT_FAILED);
    QVERIFY2(m_err.contains(QLatin1String("grabbed 0 of 5 frames: no frame came for 0.3 s")),
             qPrintable(m_err));
    QVERIFY(m_out.isEmpty());
}

void tst_GrabCommand::shouldGrabFromVendorDescriptions()
{
    QDirIterator it(sharedGenICamDir(), {QStringLiteral("*.xml")}, QDir::Files);
    int files = 0;
    while (it.hasNext()) {
        const QString file = it.next();
        const QString name = QFileInfo(file).fileName();
        ++files;
        init();
        open(file);
        // As the description powers on: its own image features, untouched.
        auto collection = m_pool->getParameterCollection(m_info);
        const auto width = qSharedPointerObjectCast<IIntegerParameter>(
            collection->getParameter(QStringLiteral("@CameraDevice/Width")));
        const auto height = qSharedPointerObjectCast<IIntegerParameter>(
            collection->getParameter(QStringLiteral("@CameraDevice/Height")));
        const auto format = qSharedPointerObjectCast<IEnumParameter>(
            collection->getParameter(QStringLiteral("@CameraDevice/PixelFormat")));
        QVERIFY2(width && height && format, qPrintable(name));
        QVERIFY2(width->getValue() >= 1 && height->getValue() >= 1, qPrintable(name));
        quint32 pfnc = 0;
        for (const auto& entry : format->getEntries()) {
            if (entry.name == format->getValue()) {
                pfnc = Plugin::Acquisition::PixelFormat::imageBytes(quint32(entry.intValue), 1, 1)
                           ? quint32(entry.intValue)
                           : Plugin::Acquisition::PixelFormat::fromName(entry.name);
            }
        }
        QVERIFY2(pfnc != 0, qPrintable(name + QLatin1Char(' ') + format->getValue()));

        const int status = grab(3, QString(), 5000);
        QVERIFY2(status == GrabCommand::EXIT_OK, qPrintable(name + QLatin1Char(' ') + m_err));
        QVERIFY2(kGrabbedLine.match(m_out.trimmed()).hasMatch(), qPrintable(m_out));
        const auto frame = m_service->getAcquisition(m_info)->latestFrame();
        QVERIFY2(frame, qPrintable(name));
        QCOMPARE(qint64(frame->width()), width->getValue());
        QCOMPARE(qint64(frame->height()), height->getValue());
        QCOMPARE(frame->pixelFormat(), pfnc);
        QCOMPARE(quint64(frame->size()), Plugin::Acquisition::PixelFormat::imageBytes(
                                             pfnc, frame->width(), frame->height()));
        qInfo("%s: %lldx%lld %s: %s", qPrintable(name), width->getValue(), height->getValue(),
              qPrintable(format->getValue()), qPrintable(m_out.trimmed()));
        cleanup();
    }
    if (files == 0) {
        QSKIP("no vendor descriptions: the shared genicam directory is absent");
    }
}

void tst_GrabCommand::shouldGrabSaveAndDumpFromTheCommandLine()
{
    QTemporaryDir dir;
    const QString png = dir.filePath(QStringLiteral("cli.png"));
    QProcess process;
    process.start(QStringLiteral(VANTOVIEWER_BINARY),
                  {QStringLiteral("--grab"), QStringLiteral("5"), QStringLiteral("--save-image"),
                   png, QStringLiteral("--dump")});
    QVERIFY(process.waitForFinished(60000));
    const QString out = QString::fromUtf8(process.readAllStandardOutput());
    QCOMPARE(process.exitCode(), 0);
    QVERIFY2(kGrabbedLine.match(out.section(QLatin1Char('\n'), 0, 0)).hasMatch(), qPrintable(out));
    // The dump after it shows the stream's statistics.
    const QRegularExpression total(
        QStringLiteral(R"(\(Statistic_Total_Buffer_Count\)\s+Integer\s+RO\s+(\d+))"));
    const auto match = total.match(out);
    QVERIFY2(match.hasMatch(), qPrintable(out.right(2000)));
    QVERIFY(match.captured(1).toInt() >= 5);
    QCOMPARE(QImage(png).format(), QImage::Format_Grayscale8);

    // The suffix chooses the form; raw bytes come with their description.
    const QString raw = dir.filePath(QStringLiteral("cli.raw"));
    QProcess rawGrab;
    rawGrab.start(
        QStringLiteral(VANTOVIEWER_BINARY),
        {QStringLiteral("--grab"), QStringLiteral("2"), QStringLiteral("--save-image"), raw});
    QVERIFY(rawGrab.waitForFinished(60000));
    QCOMPARE(rawGrab.exitCode(), 0);
    QFile side(raw + QStringLiteral(".json"));
    QVERIFY(side.open(QIODevice::ReadOnly));
    const QJsonObject description = QJsonDocument::fromJson(side.readAll()).object();
    QCOMPARE(description.value(QStringLiteral("pixelFormat")).toString(), QStringLiteral("Mono8"));
    QCOMPARE(QFileInfo(raw).size(), qint64(description.value(QStringLiteral("width")).toInt() *
                                           description.value(QStringLiteral("height")).toInt()));

    // Any other suffix is refused before the camera is touched.
    QProcess refused;
    refused.start(QStringLiteral(VANTOVIEWER_BINARY),
                  {QStringLiteral("--grab"), QStringLiteral("2"), QStringLiteral("--save-image"),
                   dir.filePath(QStringLiteral("cli.jpg"))});
    QVERIFY(refused.waitForFinished(60000));
    QVERIFY(refused.exitCode() != 0);
    QVERIFY2(QString::fromUtf8(refused.readAllStandardError())
                 .contains(QLatin1String("--save-image writes .png, .tif, .tiff or .raw files")),
             "the reason is given");
    QVERIFY(refused.readAllStandardOutput().isEmpty()); // nothing was grabbed
}

void tst_GrabCommand::shouldGrabFromTheFakeGigECameraOnTheCommandLine()
{
    FakeGigECamera camera;
    const QString unavailable = camera.start();
    if (!unavailable.isEmpty()) {
        QSKIP(qPrintable(unavailable));
    }
    QString out;
    QString err;
    int code = -1;
    QElapsedTimer waited;
    waited.start();
    // The fake camera needs a moment to bind its socket.
    while (code != 0 && waited.elapsed() < 15000) {
        QProcess process;
        process.start(QStringLiteral(VANTOVIEWER_BINARY),
                      {QStringLiteral("--camera"), QStringLiteral("127.0.0.1"),
                       QStringLiteral("--grab"), QStringLiteral("20")});
        QVERIFY(process.waitForFinished(60000));
        out = QString::fromUtf8(process.readAllStandardOutput());
        err = QString::fromUtf8(process.readAllStandardError());
        code = process.exitCode();
    }
    QVERIFY2(code == 0, qPrintable(err));
    QVERIFY2(kGrabbedLine.match(out.trimmed()).hasMatch(), qPrintable(out));
    qInfo("%s", qPrintable(out.trimmed()));
}

QTEST_MAIN(tst_GrabCommand)
#include "tst_grabcommand.moc"
