#include "histogram.h"
#include "histogrampanel.h"
#include "histogramplot.h"
#include "syntheticacquisition.h"

#include <acquisition/pixelformat.h>

#include <QCheckBox>
#include <QtTest>

namespace PixelFormat = Plugin::Acquisition::PixelFormat;
using VantoViewer::Histogram;
using VantoViewer::HistogramPanel;

class TestHistogramPanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsEachChannelWithItsMinimumMaximumAndMean()
    {
        // Given a grey frame: 6 pixels of 10, 2 of 200
        QByteArray grey(8, char(10));
        grey[3] = char(200);
        grey[7] = char(200);
        HistogramPanel panel;

        panel.setHistogram(Histogram::compute(*syntheticFrame(PixelFormat::Mono8, 4, 2, grey)));

        QCOMPARE(panel.summaryText(), QStringLiteral("Mono: min 10, max 200, mean 57.5"));
        const auto curves = panel.plot()->curves();
        QCOMPARE(curves.size(), 1);
        QCOMPARE(curves.at(0).bins.size(), 256);
        QCOMPARE(curves.at(0).bins.at(10), quint32(6));
        QCOMPARE(curves.at(0).bins.at(200), quint32(2));
    }

    void colourFramesGetACurvePerChannel()
    {
        QByteArray rgb;
        rgb.append(char(1)).append(char(2)).append(char(3));
        rgb.append(char(5)).append(char(6)).append(char(7));
        HistogramPanel panel;

        panel.setHistogram(Histogram::compute(*syntheticFrame(PixelFormat::RGB8, 2, 1, rgb)));

        QCOMPARE(panel.plot()->curves().size(), 3);
        QCOMPARE(panel.summaryText(), QStringLiteral("R: min 1, max 5, mean 3.0\n"
                                                     "G: min 2, max 6, mean 4.0\n"
                                                     "B: min 3, max 7, mean 5.0"));
        // Each channel in its own colour.
        QVERIFY(panel.plot()->curves().at(0).colour != panel.plot()->curves().at(1).colour);
        QVERIFY(panel.plot()->curves().at(1).colour != panel.plot()->curves().at(2).colour);
    }

    void logarithmicLiftsRareValues()
    {
        // 999 dark pixels and one bright one
        QByteArray grey(1000, char(0));
        grey[0] = char(255);
        HistogramPanel panel;
        panel.setHistogram(Histogram::compute(*syntheticFrame(PixelFormat::Mono8, 1000, 1, grey)));
        QVERIFY(!panel.isLogarithmic());
        const double linear = panel.plot()->barHeight(1);
        QCOMPARE(panel.plot()->barHeight(999), 1.0);
        QCOMPARE(panel.plot()->barHeight(0), 0.0);

        panel.logarithmicBox()->click();

        QVERIFY(panel.isLogarithmic());
        QVERIFY(panel.plot()->isLogarithmic());
        QCOMPARE(panel.plot()->barHeight(999), 1.0);
        QCOMPARE(panel.plot()->barHeight(0), 0.0);
        QVERIFY(panel.plot()->barHeight(1) > 10 * linear);
    }

    void aDeepHistogramShowsItsTallestBinAtItsPlace()
    {
        // A 16-bit histogram: far more bins than the plot has columns
        VantoViewer::HistogramPlot plot;
        plot.resize(204, 100); // 200 columns inside the frame
        plot.show();
        QVector<quint32> bins(65536, 0);
        bins[49152] = 10;
        plot.setCurves({{bins, QColor(Qt::red)}});

        const QImage shown = plot.grab().toImage();

        // Three quarters along, the bin's column reaches the top; elsewhere the plot is empty.
        const QColor base = plot.palette().color(QPalette::Base);
        QVERIFY(shown.pixelColor(2 + 150, 20) != base);
        QCOMPARE(shown.pixelColor(2 + 50, 20), base);
        QCOMPARE(shown.pixelColor(2 + 190, 20), base);
    }

    void clearedItShowsNoCurves()
    {
        HistogramPanel panel;
        panel.setHistogram(
            Histogram::compute(*syntheticFrame(PixelFormat::Mono8, 2, 1, QByteArray(2, char(4)))));
        panel.clear();
        QVERIFY(panel.plot()->curves().isEmpty());
        QCOMPARE(panel.summaryText(), QStringLiteral("No image"));
    }
};

QTEST_MAIN(TestHistogramPanel)
#include "tst_histogrampanel.moc"
