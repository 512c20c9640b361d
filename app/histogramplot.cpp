#include "histogramplot.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace VantoViewer {

HistogramPlot::HistogramPlot(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize HistogramPlot::sizeHint() const
{
    return QSize(320, 140);
}

QSize HistogramPlot::minimumSizeHint() const
{
    return QSize(120, 60);
}

void HistogramPlot::setCurves(const QList<Curve>& curves)
{
    m_curves = curves;
    m_tallest = 0;
    for (const Curve& curve : m_curves) {
        for (quint32 count : curve.bins) {
            m_tallest = std::max(m_tallest, count);
        }
    }
    update();
}

void HistogramPlot::setLogarithmic(bool logarithmic)
{
    m_logarithmic = logarithmic;
    update();
}

double HistogramPlot::barHeight(quint32 count) const
{
    if (m_tallest == 0) {
        return 0.0;
    }
    if (m_logarithmic) {
        // log(1 + n): an empty bin stays at zero and a single pixel still shows.
        return std::log1p(double(count)) / std::log1p(double(m_tallest));
    }
    return double(count) / m_tallest;
}

void HistogramPlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QRectF area = QRectF(rect()).adjusted(2, 2, -2, -2);
    painter.setRenderHint(QPainter::Antialiasing);
    // At most one step per screen column: a 16-bit histogram has 65536 bins, and the tallest
    // bin of each column is the one that shows.
    const int columns = std::max(1, int(area.width()));
    for (const Curve& curve : m_curves) {
        const int count = curve.bins.size();
        if (count == 0) {
            continue;
        }
        const int steps = std::min(count, columns);
        // The curve's outline over its filled area, so that overlapping channels stay legible.
        QPainterPath path(area.bottomLeft());
        for (int step = 0; step < steps; ++step) {
            const int first = int(qint64(count) * step / steps);
            const int end = std::max(first + 1, int(qint64(count) * (step + 1) / steps));
            quint32 tallest = 0;
            for (int i = first; i < end; ++i) {
                tallest = std::max(tallest, curve.bins.at(i));
            }
            const double x0 = area.left() + area.width() * step / steps;
            const double x1 = area.left() + area.width() * (step + 1) / steps;
            const double y = area.bottom() - area.height() * barHeight(tallest);
            path.lineTo(x0, y);
            path.lineTo(x1, y);
        }
        path.lineTo(area.bottomRight());
        path.closeSubpath();
        QColor fill = curve.colour;
        fill.setAlpha(70);
        painter.fillPath(path, fill);
        painter.setPen(QPen(curve.colour, 1.0));
        painter.drawPath(path);
    }
}

} // namespace VantoViewer
