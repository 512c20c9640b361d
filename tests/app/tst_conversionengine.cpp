#include "framesupport.h"

#include "conversionengine.h"

#include <QtTest>

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

using namespace FrameSupport;
using VantoViewer::ConversionEngine;
using VantoViewer::ConversionSettings;

namespace {

// Bytes that end right where an inaccessible page begins: a read past the end crashes.
class GuardedBytes {
public:
    explicit GuardedBytes(const QByteArray& bytes)
    {
        const size_t page = size_t(sysconf(_SC_PAGESIZE));
        const size_t pages = (size_t(bytes.size()) + page - 1) / page;
        m_size = (pages + 1) * page;
        m_base = static_cast<uchar*>(
            mmap(nullptr, m_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        if (m_base == MAP_FAILED) {
            m_base = nullptr;
            return;
        }
        mprotect(m_base + pages * page, page, PROT_NONE);
        m_data = m_base + pages * page - size_t(bytes.size());
        std::memcpy(m_data, bytes.constData(), size_t(bytes.size()));
    }
    ~GuardedBytes()
    {
        if (m_base) {
            munmap(m_base, m_size);
        }
    }
    const uchar* data() const { return m_data; }

private:
    uchar* m_base = nullptr;
    uchar* m_data = nullptr;
    size_t m_size = 0;
};

} // namespace

class TestConversionEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldReadNothingPastTheFramesLastByte_data()
    {
        QTest::addColumn<quint32>("format");
        QTest::addColumn<int>("width");
        for (quint32 format : {PixelFormat::RGB8, PixelFormat::BGR8, PixelFormat::YCbCr422_8,
                               PixelFormat::BayerRG8, PixelFormat::Mono8, PixelFormat::Mono12p}) {
            for (int width : {6, 250, 1282}) {
                QTest::newRow(
                    qPrintable(QStringLiteral("%1 %2").arg(PixelFormat::name(format)).arg(width)))
                    << format << width;
            }
        }
    }
    void shouldReadNothingPastTheFramesLastByte()
    {
        QFETCH(quint32, format);
        QFETCH(int, width);
        // Given: a frame whose buffer ends with its last line, an unreadable page after it
        const int height = 4;
        QByteArray bytes(int(PixelFormat::imageBytes(format, width, height)), '\0');
        for (int i = 0; i < bytes.size(); ++i) {
            bytes[i] = char(i * 31);
        }
        const GuardedBytes guarded(bytes);
        QVERIFY(guarded.data());
        const Frame frame(width, height, format, guarded.data(), std::size_t(bytes.size()), 1, 0,
                          Frame::Complete);

        // When: converted both ways (a read past the end would end the test here)
        ConversionEngine engine;
        QString error;
        for (auto output : {ConversionSettings::RGB8, ConversionSettings::Mono8}) {
            ConversionSettings settings;
            settings.outputFormat = output;
            const QImage image = engine.convert(frame, settings, &error);

            // Then
            QVERIFY2(!image.isNull(), qPrintable(error));
            QCOMPARE(image.size(), QSize(width, height));
        }
    }

    void shouldReuseAnImageNobodyHoldsAnyMore()
    {
        // Given
        ConversionEngine engine;
        const FramePtr first = makeFrame(PixelFormat::Mono8, 16, 4, QByteArray(64, '\x10'));
        const FramePtr second = makeFrame(PixelFormat::Mono8, 16, 4, QByteArray(64, '\x20'));
        const FramePtr third = makeFrame(PixelFormat::Mono8, 16, 4, QByteArray(64, '\x30'));
        QString error;
        const uchar* firstBuffer = nullptr;
        {
            const QImage image = engine.convert(*first, ConversionSettings(), &error);
            firstBuffer = image.constBits();
        }

        // When: the first image was let go, the second one is held
        const QImage held = engine.convert(*second, ConversionSettings(), &error);
        const QImage next = engine.convert(*third, ConversionSettings(), &error);

        // Then: the first buffer served again, and the held image kept its pixels
        QCOMPARE(held.constBits(), firstBuffer);
        QVERIFY(next.constBits() != held.constBits());
        QCOMPARE(int(held.constScanLine(3)[15]), 0x20);
        QCOMPARE(int(next.constScanLine(3)[15]), 0x30);
    }

    void shouldNeverWriteIntoAnImageStillHeld()
    {
        // Given: every image the engine hands out is kept
        ConversionEngine engine;
        QVector<QImage> kept;
        QString error;
        for (int i = 0; i < 5; ++i) {
            const FramePtr frame = makeFrame(PixelFormat::RGB8, 3, 2, QByteArray(18, char(i)));
            kept.append(engine.convert(*frame, ConversionSettings(), &error));
        }

        // Then: each still shows its own frame
        for (int i = 0; i < kept.size(); ++i) {
            QCOMPARE(kept.at(i).pixelColor(2, 1), QColor(i, i, i));
        }
    }

    void shouldFollowAChangeOfSizeAndFormat()
    {
        ConversionEngine engine;
        QString error;
        const QImage small =
            engine.convert(*makeFrame(PixelFormat::BayerRG8, 4, 2, QByteArray(8, '\x40')),
                           ConversionSettings(), &error);
        const QImage large =
            engine.convert(*makeFrame(PixelFormat::YCbCr422_8, 6, 4, QByteArray(48, '\x80')),
                           ConversionSettings(), &error);
        QCOMPARE(small.size(), QSize(4, 2));
        QCOMPARE(large.size(), QSize(6, 4));
        QCOMPARE(large.pixelColor(5, 3), QColor(128, 128, 128));
        QCOMPARE(small.pixelColor(3, 1), QColor(64, 64, 64));
    }
};

QTEST_APPLESS_MAIN(TestConversionEngine)
#include "tst_conversionengine.moc"
