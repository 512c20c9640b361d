#include "framesupport.h"

#include "conversionengine.h"

#include <QtTest>

using namespace FrameSupport;
using VantoViewer::ConversionEngine;
using VantoViewer::ConversionSettings;

class TestConversionEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
