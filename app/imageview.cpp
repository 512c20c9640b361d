#include "imageview.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace VantoViewer {

namespace {
constexpr double FALLBACK_REFRESH_HZ = 60.0;
constexpr int WHEEL_NOTCH = 120;
} // namespace

ImageView::ImageView(QWidget* parent) : QWidget(parent), m_refreshTimer(new QTimer(this))
{
    setMouseTracking(true);
    setMinimumSize(160, 120);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::CrossCursor);
    m_refreshTimer->setSingleShot(true);
    connect(m_refreshTimer, &QTimer::timeout, this, [this]() {
        if (m_repaintPending) {
            m_repaintPending = false;
            update();
            m_refreshTimer->start(refreshIntervalMs());
        }
    });
}

void ImageView::setImage(const QImage& image)
{
    const bool sizeChanged = image.size() != m_image.size();
    m_image = image;
    m_message.clear();
    m_newImage = !image.isNull();
    if (sizeChanged && m_fitting) {
        applyFit();
    }
    if (sizeChanged && m_cursorInside) {
        updateHoveredPixel(m_lastCursor);
    }
    scheduleRepaint();
}

void ImageView::setMessage(const QString& text)
{
    m_image = QImage();
    m_message = text;
    m_newImage = false;
    updateHoveredPixel(m_lastCursor);
    scheduleRepaint();
}

void ImageView::clear()
{
    setMessage(QString());
}

void ImageView::fit()
{
    m_fitting = true;
    applyFit();
    scheduleRepaint();
}

void ImageView::applyFit()
{
    if (m_image.isNull() || width() <= 0 || height() <= 0) {
        return;
    }
    const double zoom =
        std::clamp(std::min(double(width()) / m_image.width(), double(height()) / m_image.height()),
                   MIN_ZOOM, MAX_ZOOM);
    const QPointF origin((width() - m_image.width() * zoom) / 2.0,
                         (height() - m_image.height() * zoom) / 2.0);
    setZoomAndOrigin(zoom, origin);
}

void ImageView::showActualSize()
{
    if (m_image.isNull()) {
        m_fitting = false;
        setZoomAndOrigin(1.0, m_origin);
        return;
    }
    // The image's centre pixel lands on the view's centre.
    const QPointF centre(width() / 2.0, height() / 2.0);
    m_fitting = false;
    setZoomAndOrigin(1.0, centre - QPointF(m_image.width() / 2.0, m_image.height() / 2.0));
}

void ImageView::zoomAbout(double zoom, const QPointF& anchor)
{
    const QPointF imagePoint = imagePointAt(anchor);
    const double clamped = std::clamp(zoom, MIN_ZOOM, MAX_ZOOM);
    m_fitting = false;
    setZoomAndOrigin(clamped, anchor - imagePoint * clamped);
}

void ImageView::setZoomAndOrigin(double zoom, const QPointF& origin)
{
    const bool zoomChange = !qFuzzyCompare(zoom, m_zoom);
    m_zoom = zoom;
    m_origin = origin;
    scheduleRepaint();
    if (m_cursorInside) {
        updateHoveredPixel(m_lastCursor);
    }
    if (zoomChange) {
        Q_EMIT zoomChanged(m_zoom);
    }
}

QPointF ImageView::imagePointAt(const QPointF& viewPoint) const
{
    return (viewPoint - m_origin) / m_zoom;
}

QPointF ImageView::viewPointOf(const QPointF& imagePoint) const
{
    return m_origin + imagePoint * m_zoom;
}

void ImageView::scheduleRepaint()
{
    if (m_refreshTimer->isActive()) {
        m_repaintPending = true;
        return;
    }
    update();
    m_refreshTimer->start(refreshIntervalMs());
}

int ImageView::refreshIntervalMs() const
{
    const QScreen* shownOn = screen();
    const double hz =
        shownOn && shownOn->refreshRate() >= 1.0 ? shownOn->refreshRate() : FALLBACK_REFRESH_HZ;
    return std::max(1, int(std::floor(1000.0 / hz)));
}

void ImageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Dark));
    if (m_image.isNull()) {
        if (!m_message.isEmpty()) {
            painter.setPen(palette().color(QPalette::BrightText));
            painter.drawText(rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
                             m_message);
        }
        return;
    }
    // Only the part of the image that shows is scaled.
    const QRectF target(m_origin, QSizeF(m_image.size()) * m_zoom);
    const QRectF shown = target.intersected(QRectF(rect()));
    if (!shown.isEmpty()) {
        const QRectF source((shown.topLeft() - m_origin) / m_zoom, shown.size() / m_zoom);
        // Enlarged pixels stay sharp squares, so that single values can be told apart.
        painter.setRenderHint(QPainter::SmoothPixmapTransform, m_zoom < 1.0);
        painter.drawImage(shown, m_image, source);
    }
    if (m_newImage) {
        m_newImage = false;
        ++m_paintedCount;
        Q_EMIT imagePainted();
    }
}

void ImageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_fitting) {
        applyFit();
    }
}

void ImageView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier) || m_image.isNull()) {
        event->ignore();
        return;
    }
    const double notches = event->angleDelta().y() / double(WHEEL_NOTCH);
    zoomAbout(m_zoom * std::pow(WHEEL_ZOOM_STEP, notches), event->position());
    event->accept();
}

void ImageView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_image.isNull()) {
        QWidget::mousePressEvent(event);
        return;
    }
    m_dragging = true;
    m_dragStart = event->localPos();
    m_originAtDragStart = m_origin;
    setCursor(Qt::ClosedHandCursor);
}

void ImageView::mouseMoveEvent(QMouseEvent* event)
{
    m_cursorInside = true;
    m_lastCursor = event->localPos();
    if (m_dragging) {
        m_fitting = false;
        setZoomAndOrigin(m_zoom, m_originAtDragStart + (event->localPos() - m_dragStart));
    }
    updateHoveredPixel(m_lastCursor);
}

void ImageView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_dragging) {
        m_dragging = false;
        setCursor(Qt::CrossCursor);
    }
    QWidget::mouseReleaseEvent(event);
}

void ImageView::leaveEvent(QEvent* event)
{
    m_cursorInside = false;
    updateHoveredPixel(QPointF(-1, -1));
    QWidget::leaveEvent(event);
}

void ImageView::updateHoveredPixel(const QPointF& viewPoint)
{
    QPoint pixel(-1, -1);
    if (m_cursorInside && !m_image.isNull()) {
        const QPointF point = imagePointAt(viewPoint);
        const QPoint candidate(int(std::floor(point.x())), int(std::floor(point.y())));
        if (m_image.rect().contains(candidate)) {
            pixel = candidate;
        }
    }
    if (pixel != m_hoveredPixel) {
        m_hoveredPixel = pixel;
        Q_EMIT hoveredPixelChanged(pixel);
    }
}

} // namespace VantoViewer
