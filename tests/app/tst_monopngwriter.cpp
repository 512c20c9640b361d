#include "monopngwriter.h"

#include <acquisition/pixelformat.h>

#include <QTemporaryDir>
#include <QtTest>

using Plugin::Acquisition::Frame;
using VantoViewer::MonoPngWriter;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;

class tst_MonoPngWriter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldWriteMono8AsEightBitGrey();
    void shouldWriteDeepMonoAsSixteenBitGrey_data();
    void shouldWriteDeepMonoAsSixteenBitGrey();
    void shouldRefuseOtherFormatsAndShortFrames();
};

namespace {

Frame frameOf(const QByteArray& bytes, quint32 format, quint32 width, quint32 height)
{
    return Frame(width, height, format, reinterpret_cast<const uchar*>(bytes.constData()),
                 std::size_t(bytes.size()), 1, 0, Frame::Complete);
}

} // namespace

void tst_MonoPngWriter::shouldWriteMono8AsEightBitGrey()
{
    QByteArray bytes;
    for (int i = 0; i < 12; ++i) {
        bytes.append(char(i * 20));
    }
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("mono8.png"));
    QString error;
    QVERIFY2(MonoPngWriter::save(frameOf(bytes, PixelFormat::Mono8, 4, 3), file, &error),
             qPrintable(error));
    const QImage read(file);
    QCOMPARE(read.size(), QSize(4, 3));
    QVERIFY(read.isGrayscale());
    QCOMPARE(read.depth(), 8);
    QCOMPARE(qGray(read.pixel(1, 2)), 9 * 20);
}

void tst_MonoPngWriter::shouldWriteDeepMonoAsSixteenBitGrey_data()
{
    QTest::addColumn<quint32>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QVector<quint16>>("expected");
    // Two pixels, 0x3FF (full scale) and 0x001, in each layout.
    QTest::newRow("Mono10") << PixelFormat::Mono10 << QByteArray("\xFF\x03\x01\x00", 4)
                            << QVector<quint16>{0xFFFF, 0x0040};
    QTest::newRow("Mono12") << PixelFormat::Mono12 << QByteArray("\xFF\x0F\x01\x00", 4)
                            << QVector<quint16>{0xFFFF, 0x0010};
    QTest::newRow("Mono16") << PixelFormat::Mono16 << QByteArray("\x34\x12\x01\x00", 4)
                            << QVector<quint16>{0x1234, 0x0001};
    // Mono10p: bits 0-9 the first pixel, 10-19 the second, little endian.
    QTest::newRow("Mono10p") << PixelFormat::Mono10p << QByteArray("\xFF\x07\x00", 3)
                             << QVector<quint16>{0xFFFF, 0x0040};
    // Mono12p: 0xFFF then 0x001 in three bytes.
    QTest::newRow("Mono12p") << PixelFormat::Mono12p << QByteArray("\xFF\x1F\x00", 3)
                             << QVector<quint16>{0xFFFF, 0x0010};
}

void tst_MonoPngWriter::shouldWriteDeepMonoAsSixteenBitGrey()
{
    QFETCH(quint32, format);
    QFETCH(QByteArray, bytes);
    QFETCH(QVector<quint16>, expected);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("deep.png"));
    QString error;
    QVERIFY2(MonoPngWriter::save(frameOf(bytes, format, 2, 1), file, &error), qPrintable(error));
    const QImage read(file);
    QCOMPARE(read.format(), QImage::Format_Grayscale16);
    const auto* line = reinterpret_cast<const quint16*>(read.constScanLine(0));
    QCOMPARE(line[0], expected[0]);
    QCOMPARE(line[1], expected[1]);
}

void tst_MonoPngWriter::shouldRefuseOtherFormatsAndShortFrames()
{
    QString error;
    const QByteArray rgb(12, '\x10');
    QVERIFY(MonoPngWriter::toImage(frameOf(rgb, PixelFormat::RGB8, 2, 2), &error).isNull());
    QVERIFY2(error.contains(QLatin1String("RGB8")) &&
                 error.contains(QLatin1String("can't be saved as PNG yet")),
             qPrintable(error));
    const QByteArray shortMono(3, '\0');
    QVERIFY(MonoPngWriter::toImage(frameOf(shortMono, PixelFormat::Mono8, 2, 2), &error).isNull());
    QVERIFY2(error.contains(QLatin1String("3 bytes")), qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_MonoPngWriter)
#include "tst_monopngwriter.moc"
