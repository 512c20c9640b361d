#include "streammeter.h"

#include <QtTest>

using Plugin::Acquisition::Statistics;
using VantoViewer::StreamMeter;

namespace {
Statistics counted(quint64 completed, quint64 incomplete, quint64 bytes)
{
    Statistics statistics;
    statistics.completed = completed;
    statistics.incomplete = incomplete;
    statistics.bytes = bytes;
    return statistics;
}
} // namespace

class TestStreamMeter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ratesComeFromTheDifferenceOfTwoSamples()
    {
        StreamMeter meter;
        meter.reset(counted(100, 2, 100'000'000), 40, 1000);
        QVERIFY(!meter.hasRates());

        // Half a second: 30 frames received, 3.0 MB, 10 images painted
        meter.sample(counted(129, 3, 103'000'000), 50, 1500);

        QVERIFY(meter.hasRates());
        QCOMPARE(meter.receivedFps(), 60.0);
        QCOMPARE(meter.megabytesPerSecond(), 6.0);
        QCOMPARE(meter.displayedFps(), 20.0);
        QCOMPARE(meter.incomplete(), quint64(3));
        QCOMPARE(meter.droppedForDisplay(), quint64(20));
    }

    void droppedFramesAddUpOverSamplesAndRatesDoNot()
    {
        StreamMeter meter;
        meter.reset(counted(0, 0, 0), 0, 0);
        meter.sample(counted(10, 0, 1000), 10, 1000);
        meter.sample(counted(20, 0, 2000), 15, 2000);

        QCOMPARE(meter.receivedFps(), 10.0);
        QCOMPARE(meter.displayedFps(), 5.0);
        QCOMPARE(meter.droppedForDisplay(), quint64(5));
    }

    void aStreamResetCountsAfresh()
    {
        StreamMeter meter;
        meter.reset(counted(500, 0, 0), 100, 0);
        meter.sample(counted(4, 0, 0), 102, 1000);

        QCOMPARE(meter.receivedFps(), 4.0);
        QCOMPARE(meter.droppedForDisplay(), quint64(2));
        meter.sample(counted(8, 0, 0), 106, 2000);
        QCOMPARE(meter.droppedForDisplay(), quint64(2));
    }

    void noTimeNoRates()
    {
        StreamMeter meter;
        meter.reset(counted(0, 0, 0), 0, 1000);
        meter.sample(counted(10, 0, 0), 0, 1000);
        QVERIFY(!meter.hasRates());
    }
};

QTEST_MAIN(TestStreamMeter)
#include "tst_streammeter.moc"
