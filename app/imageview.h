#pragma once

#include <QImage>
#include <QPointF>
#include <QString>
#include <QWidget>

class QTimer;

namespace VantoViewer {

// Shows one image, scaled to fit or zoomed about the cursor, and dragged about with the mouse.
// Images may come faster than the screen shows them: the view keeps only the latest and paints
// at most once per screen refresh, so a slow display skips images and never queues them.
class ImageView : public QWidget {
    Q_OBJECT
public:
    static constexpr double MIN_ZOOM = 1.0 / 64;
    static constexpr double MAX_ZOOM = 64.0;
    // One wheel notch zooms in or out by this factor.
    static constexpr double WHEEL_ZOOM_STEP = 1.25;

    explicit ImageView(QWidget* parent = nullptr);

    // Replaces the image shown; the message, if any, goes.
    void setImage(const QImage& image);
    QImage image() const { return m_image; }
    // Shows the text instead of an image, e.g. why a frame can't be shown; the image goes, so
    // that nothing stale passes for the camera's picture.
    void setMessage(const QString& text);
    QString message() const { return m_message; }
    void clear();

    // Fit: the whole image in the view, kept so as the view changes size.
    void fit();
    bool isFitting() const { return m_fitting; }
    // 100 %: one image pixel per screen pixel, about the view's centre.
    void showActualSize();
    // Screen pixels per image pixel.
    double zoom() const { return m_zoom; }
    // Keeps the image point under `anchor` (view coordinates) where it is.
    void zoomAbout(double zoom, const QPointF& anchor);

    // Where a view point falls on the image, in image pixel coordinates (fractional), and back.
    QPointF imagePointAt(const QPointF& viewPoint) const;
    QPointF viewPointOf(const QPointF& imagePoint) const;

    // The pixel under the cursor, or (-1, -1).
    QPoint hoveredPixel() const { return m_hoveredPixel; }

    // Images painted so far; each is counted once, however often it is repainted.
    quint64 paintedCount() const { return m_paintedCount; }

Q_SIGNALS:
    // The pixel under the cursor, or (-1, -1) when the cursor is off the image.
    void hoveredPixelChanged(const QPoint& pixel);
    // A new image reached the screen.
    void imagePainted();
    void zoomChanged(double zoom);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void applyFit();
    void setZoomAndOrigin(double zoom, const QPointF& origin);
    void scheduleRepaint();
    void updateHoveredPixel(const QPointF& viewPoint);
    int refreshIntervalMs() const;

    QImage m_image;
    QString m_message;
    double m_zoom = 1.0;
    QPointF m_origin; // where the image's top left corner lies in the view
    bool m_fitting = true;
    bool m_dragging = false;
    QPointF m_dragStart;
    QPointF m_originAtDragStart;
    QPoint m_hoveredPixel{-1, -1};
    QPointF m_lastCursor{-1, -1};
    bool m_cursorInside = false;
    // The latest image is painted when the screen can take the next picture.
    QTimer* m_refreshTimer; // child
    bool m_repaintPending = false;
    bool m_newImage = false;
    quint64 m_paintedCount = 0;
};

} // namespace VantoViewer
