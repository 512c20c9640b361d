#include "histogrampanel.h"

#include "histogram.h"
#include "histogramplot.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace VantoViewer {

HistogramPanel::HistogramPanel(QWidget* parent)
    : QWidget(parent), m_plot(new HistogramPlot(this)),
      m_logarithmic(new QCheckBox(tr("Logarithmic"), this)), m_summary(new QLabel(this))
{
    setObjectName(QStringLiteral("VantoViewer.HistogramPanel"));
    m_logarithmic->setToolTip(tr("Counts on a logarithmic scale, so that rare values show"));
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_summary->setTextFormat(Qt::PlainText);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_summary, 1);
    bottom->addWidget(m_logarithmic, 0, Qt::AlignTop);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_plot, 1);
    layout->addLayout(bottom);
    connect(m_logarithmic, &QCheckBox::toggled, m_plot, &HistogramPlot::setLogarithmic);
    clear();
}

void HistogramPanel::setHistogram(const Histogram& histogram)
{
    QList<HistogramPlot::Curve> curves;
    QStringList lines;
    for (int i = 0; i < histogram.channelCount(); ++i) {
        const QString name = histogram.channelName(i);
        curves.append({histogram.bins(i), colourOf(name)});
        lines << tr("%1: min %2, max %3, mean %4")
                     .arg(name)
                     .arg(histogram.minimum(i))
                     .arg(histogram.maximum(i))
                     .arg(histogram.mean(i), 0, 'f', 1);
    }
    m_plot->setCurves(curves);
    const QString summary = lines.join(QLatin1Char('\n'));
    if (summary != m_summary->text()) {
        m_summary->setText(summary);
    }
}

void HistogramPanel::clear()
{
    m_plot->setCurves({});
    m_summary->setText(tr("No image"));
}

void HistogramPanel::setLogarithmic(bool logarithmic)
{
    m_logarithmic->setChecked(logarithmic);
}

bool HistogramPanel::isLogarithmic() const
{
    return m_logarithmic->isChecked();
}

QString HistogramPanel::summaryText() const
{
    return m_summary->text();
}

QColor HistogramPanel::colourOf(const QString& channelName)
{
    if (channelName == QLatin1String("R") || channelName == QLatin1String("Cr")) {
        return QColor(220, 40, 40);
    }
    if (channelName == QLatin1String("G")) {
        return QColor(40, 170, 40);
    }
    if (channelName == QLatin1String("B") || channelName == QLatin1String("Cb")) {
        return QColor(40, 80, 230);
    }
    return QColor(90, 90, 90);
}

} // namespace VantoViewer
