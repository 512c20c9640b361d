#pragma once

#include <acquisition/frame.h>

#include <QCoreApplication>
#include <QImage>
#include <QString>

namespace VantoViewer {

// Snapshots of a frame in a file.
//
// Png: Mono8 as 8-bit grey; deeper Mono as 16-bit grey holding the raw values as the camera
// gave them (a 12-bit 4095 stays 4095, it is not scaled to 65535); Bayer and colour frames as
// the converted 8-bit RGB image, without display gamma.
// Tiff: the same, 8-bit or 16-bit grey and 8-bit RGB.
// Raw: the frame's bytes as received, and beside them FILE.json with width, height, pixel
// format name and code, frame id, timestamp, byte count and status.
class ImageWriter {
    Q_DECLARE_TR_FUNCTIONS(VantoViewer::ImageWriter)

public:
    enum Format { Png, Tiff, Raw };

    static bool write(const Plugin::Acquisition::Frame& frame, const QString& path, Format format,
                      QString* error);
    // The format a file name asks for by its suffix: .png, .tif or .tiff, .raw (any case).
    // False for any other suffix or none.
    static bool formatOf(const QString& path, Format* format);
    // Where Raw puts the description of the bytes.
    static QString sideFilePath(const QString& rawPath);
    // What Png and Tiff store: Grayscale8, Grayscale16 (raw values) or RGB888.
    static QImage fileImage(const Plugin::Acquisition::Frame& frame, QString* error);

private:
    static bool writePng(const QImage& image, const QString& path, QString* error);
    static bool writeTiff(const QImage& image, const QString& path, QString* error);
    static bool writeRaw(const Plugin::Acquisition::Frame& frame, const QString& path,
                         QString* error);
    static bool writeFile(const QString& path, const char* data, qint64 size, QString* error);
    static bool checkWritable(const QString& path, QString* error);
};

} // namespace VantoViewer
