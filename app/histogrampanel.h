#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;

namespace VantoViewer {

class Histogram;
class HistogramPlot;

// The histogram of the displayed frame: a curve per channel over the raw values, linear or
// logarithmic, with each channel's minimum, maximum and mean.
class HistogramPanel : public QWidget {
    Q_OBJECT
public:
    explicit HistogramPanel(QWidget* parent = nullptr);

    void setHistogram(const Histogram& histogram);
    void clear();

    void setLogarithmic(bool logarithmic);
    bool isLogarithmic() const;
    HistogramPlot* plot() const { return m_plot; }
    QCheckBox* logarithmicBox() const { return m_logarithmic; }
    // One line per channel: its name, minimum, maximum and mean, as shown.
    QString summaryText() const;

private:
    static QColor colourOf(const QString& channelName);

    HistogramPlot* m_plot;    // child
    QCheckBox* m_logarithmic; // child
    QLabel* m_summary;        // child
};

} // namespace VantoViewer
