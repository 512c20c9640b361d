#pragma once

#include <QColor>
#include <QList>
#include <QVector>
#include <QWidget>

namespace VantoViewer {

// Draws the counts of one histogram, a curve per channel over the raw values, on a linear or
// logarithmic count axis.
class HistogramPlot : public QWidget {
    Q_OBJECT
public:
    struct Curve {
        QVector<quint32> bins;
        QColor colour;
    };

    explicit HistogramPlot(QWidget* parent = nullptr);

    void setCurves(const QList<Curve>& curves);
    QList<Curve> curves() const { return m_curves; }
    void setLogarithmic(bool logarithmic);
    bool isLogarithmic() const { return m_logarithmic; }

    // The height of a bin's bar, from 0 (none) to 1 (the tallest bin of all channels).
    double barHeight(quint32 count) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<Curve> m_curves;
    quint32 m_tallest = 0;
    bool m_logarithmic = false;
};

} // namespace VantoViewer
