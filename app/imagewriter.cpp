#include "imagewriter.h"

#include "conversionengine.h"
#include "pixellayout.h"

#include <acquisition/frame.h>
#include <acquisition/pixelformat.h>

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

#include <tiffio.h>

#include <cstdarg>
#include <cstdio>
#include <vector>

namespace VantoViewer {

using Plugin::Acquisition::Frame;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;

namespace {

void setError(QString* error, const QString& message)
{
    if (error) {
        *error = message;
    }
}

int collectTiffError(TIFF*, void* userData, const char*, const char* format, va_list arguments)
{
    char text[512];
    std::vsnprintf(text, sizeof text, format, arguments);
    auto* message = static_cast<QString*>(userData);
    if (message->isEmpty()) {
        *message = QString::fromLocal8Bit(text);
    }
    return 1;
}

QString statusName(const Frame& frame)
{
    return frame.isComplete() ? QStringLiteral("Complete") : QStringLiteral("Incomplete");
}

} // namespace

bool ImageWriter::write(const Frame& frame, const QString& path, Format format, QString* error)
{
    if (format == Raw) {
        return writeRaw(frame, path, error);
    }
    if (format != Png && format != Tiff) {
        setError(error, tr("Unknown image file format %1.").arg(int(format)));
        return false;
    }
    const QImage image = fileImage(frame, error);
    if (image.isNull()) {
        return false;
    }
    return format == Png ? writePng(image, path, error) : writeTiff(image, path, error);
}

bool ImageWriter::formatOf(const QString& path, Format* format)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    Format found = Png;
    if (suffix == QLatin1String("tif") || suffix == QLatin1String("tiff")) {
        found = Tiff;
    } else if (suffix == QLatin1String("raw")) {
        found = Raw;
    } else if (suffix != QLatin1String("png")) {
        return false;
    }
    if (format) {
        *format = found;
    }
    return true;
}

QString ImageWriter::sideFilePath(const QString& rawPath)
{
    return rawPath + QStringLiteral(".json");
}

QImage ImageWriter::fileImage(const Frame& frame, QString* error)
{
    const QString problem = ConversionEngine::checkFrame(frame);
    if (!problem.isEmpty()) {
        setError(error, problem);
        return QImage();
    }
    const PixelLayout layout = PixelLayout::of(frame.pixelFormat());
    if (layout.kind() != PixelLayout::Mono || layout.bitDepth() == 8) {
        ConversionEngine engine;
        return engine.convert(frame, ConversionSettings(), error);
    }
    QImage image(int(frame.width()), int(frame.height()), QImage::Format_Grayscale16);
    if (image.isNull()) {
        setError(error, ConversionEngine::noMemoryText(int(frame.width()), int(frame.height())));
        return QImage();
    }
    for (int y = 0; y < image.height(); ++y) {
        layout.unpack(frame.data(), quint64(y) * frame.width(), frame.width(),
                      reinterpret_cast<quint16*>(image.scanLine(y)));
    }
    return image;
}

bool ImageWriter::checkWritable(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        setError(error, tr("Cannot write %1: %2").arg(path, file.errorString()));
        return false;
    }
    return true;
}

bool ImageWriter::writePng(const QImage& image, const QString& path, QString* error)
{
    if (!checkWritable(path, error)) {
        return false;
    }
    QImageWriter writer(path, "png");
    if (!writer.write(image)) {
        setError(error, tr("Cannot write %1: %2").arg(path, writer.errorString()));
        return false;
    }
    return true;
}

bool ImageWriter::writeTiff(const QImage& image, const QString& path, QString* error)
{
    if (!checkWritable(path, error)) {
        return false;
    }
    QString tiffError;
    TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
    TIFFOpenOptionsSetErrorHandlerExtR(options, collectTiffError, &tiffError);
    TIFF* tiff = TIFFOpenExt(QFile::encodeName(path).constData(), "w", options);
    TIFFOpenOptionsFree(options);
    if (!tiff) {
        setError(error, tr("Cannot write %1: %2").arg(path, tiffError));
        return false;
    }
    const bool rgb = image.format() == QImage::Format_RGB888;
    const int bits = image.format() == QImage::Format_Grayscale16 ? 16 : 8;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, quint32(image.width()));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, quint32(image.height()));
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, rgb ? 3 : 1);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, bits);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, rgb ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
    bool ok = true;
    for (int y = 0; ok && y < image.height(); ++y) {
        // TIFFWriteScanline takes a non-const buffer but does not change it without compression.
        ok =
            TIFFWriteScanline(tiff, const_cast<uchar*>(image.constScanLine(y)), quint32(y), 0) == 1;
    }
    TIFFClose(tiff);
    if (!ok || !tiffError.isEmpty()) {
        setError(error, tr("Cannot write %1: %2").arg(path, tiffError));
        return false;
    }
    return true;
}

bool ImageWriter::writeRaw(const Frame& frame, const QString& path, QString* error)
{
    if (!frame.data() || frame.size() == 0) {
        setError(error, tr("The frame holds no bytes."));
        return false;
    }
    const quint32 code = frame.pixelFormat();
    // Written by hand: QJsonValue keeps numbers as doubles, and a timestamp in nanoseconds
    // does not fit in one.
    const QString side = QStringLiteral("{\n"
                                        "    \"width\": %1,\n"
                                        "    \"height\": %2,\n"
                                        "    \"pixelFormat\": \"%3\",\n"
                                        "    \"pixelFormatCode\": \"0x%4\",\n"
                                        "    \"frameId\": %5,\n"
                                        "    \"timestampNs\": %6,\n"
                                        "    \"bytes\": %7,\n"
                                        "    \"status\": \"%8\"\n"
                                        "}\n")
                             .arg(frame.width())
                             .arg(frame.height())
                             .arg(PixelFormat::name(code))
                             .arg(code, 8, 16, QLatin1Char('0'))
                             .arg(frame.frameId())
                             .arg(frame.timestampNs())
                             .arg(quint64(frame.size()))
                             .arg(statusName(frame));
    const QByteArray sideBytes = side.toUtf8();
    return writeFile(path, reinterpret_cast<const char*>(frame.data()), qint64(frame.size()),
                     error) &&
           writeFile(sideFilePath(path), sideBytes.constData(), sideBytes.size(), error);
}

bool ImageWriter::writeFile(const QString& path, const char* data, qint64 size, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data, size) != size || !file.commit()) {
        setError(error, tr("Cannot write %1: %2").arg(path, file.errorString()));
        return false;
    }
    return true;
}

} // namespace VantoViewer
