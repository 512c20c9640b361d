#include "imageview.h"

#include <QApplication>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

using VantoViewer::ImageView;

namespace {

QImage filled(int width, int height, QColor colour)
{
    QImage image(width, height, QImage::Format_RGB888);
    image.fill(colour);
    return image;
}

// Shown on the (offscreen) screen at this size.
bool showAt(ImageView& view, int width, int height)
{
    view.resize(width, height);
    view.show();
    return QTest::qWaitForWindowExposed(&view);
}

void wheel(ImageView& view, const QPointF& at, int notches, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(at, view.mapToGlobal(at.toPoint()), QPoint(), QPoint(0, notches * 120),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &event);
}

void mouse(ImageView& view, QEvent::Type type, const QPointF& at, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, view.mapToGlobal(at.toPoint()), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
}

} // namespace

class TestImageView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fitShowsTheWholeImageCentred()
    {
        // Given a 400 x 400 view
        ImageView view;
        QVERIFY(showAt(view, 400, 400));

        // When a wide image arrives
        view.setImage(filled(200, 100, Qt::red));

        // Then it fills the width, twice enlarged, centred vertically
        QVERIFY(view.isFitting());
        QCOMPARE(view.zoom(), 2.0);
        QCOMPARE(view.viewPointOf(QPointF(0, 0)), QPointF(0, 100));
        QCOMPARE(view.viewPointOf(QPointF(200, 100)), QPointF(400, 300));

        // and keeps fitting as the view changes size
        view.resize(160, 400);
        QCOMPARE(view.zoom(), 0.8);
        QCOMPARE(view.viewPointOf(QPointF(0, 0)), QPointF(0, 160));
    }

    void actualSizeShowsOneScreenPixelPerImagePixel()
    {
        ImageView view;
        QVERIFY(showAt(view, 400, 300));
        view.setImage(filled(1000, 800, Qt::red));
        QVERIFY(view.zoom() < 1.0);

        view.showActualSize();

        QVERIFY(!view.isFitting());
        QCOMPARE(view.zoom(), 1.0);
        // The image's centre stays in the view's centre.
        QCOMPARE(view.imagePointAt(QPointF(200, 150)), QPointF(500, 400));
        QCOMPARE(view.imagePointAt(QPointF(201, 150)), QPointF(501, 400));

        // A new image of the same size keeps the user's zoom.
        view.setImage(filled(1000, 800, Qt::blue));
        QCOMPARE(view.zoom(), 1.0);

        view.fit();
        QVERIFY(view.isFitting());
        QCOMPARE(view.zoom(), 0.375);
    }

    void ctrlWheelZoomKeepsThePixelUnderTheCursor()
    {
        ImageView view;
        QVERIFY(showAt(view, 400, 400));
        view.setImage(filled(200, 200, Qt::green));
        const QPointF cursor(123.0, 301.0);
        mouse(view, QEvent::MouseMove, cursor, Qt::NoButton);
        const QPointF before = view.imagePointAt(cursor);
        const QPoint pixelBefore = view.hoveredPixel();
        QCOMPARE(pixelBefore, QPoint(61, 150));

        wheel(view, cursor, 3, Qt::ControlModifier);

        QVERIFY(view.zoom() > 2.0);
        QCOMPARE(view.zoom(), 2.0 * 1.25 * 1.25 * 1.25);
        QCOMPARE(view.imagePointAt(cursor), before);
        QCOMPARE(view.hoveredPixel(), pixelBefore);

        wheel(view, cursor, -5, Qt::ControlModifier);
        QVERIFY(view.zoom() < 2.0);
        QCOMPARE(view.imagePointAt(cursor), before);
        QCOMPARE(view.hoveredPixel(), pixelBefore);
    }

    void wheelWithoutCtrlDoesNotZoom()
    {
        ImageView view;
        QVERIFY(showAt(view, 400, 400));
        view.setImage(filled(200, 200, Qt::green));

        wheel(view, QPointF(10, 10), 2, Qt::NoModifier);

        QCOMPARE(view.zoom(), 2.0);
        QVERIFY(view.isFitting());
    }

    void dragPansTheImage()
    {
        ImageView view;
        QVERIFY(showAt(view, 400, 400));
        view.setImage(filled(200, 200, Qt::green));
        view.showActualSize();
        const QPointF start = view.viewPointOf(QPointF(0, 0));

        mouse(view, QEvent::MouseButtonPress, QPointF(200, 200), Qt::LeftButton);
        mouse(view, QEvent::MouseMove, QPointF(230, 180), Qt::LeftButton);
        mouse(view, QEvent::MouseButtonRelease, QPointF(230, 180), Qt::NoButton);

        QCOMPARE(view.viewPointOf(QPointF(0, 0)), start + QPointF(30, -20));
        QCOMPARE(view.zoom(), 1.0);
        QVERIFY(!view.isFitting());
    }

    void reportsThePixelUnderTheCursorAndWhenItLeavesTheImage()
    {
        ImageView view;
        QVERIFY(showAt(view, 400, 400));
        view.setImage(filled(200, 100, Qt::green)); // shown at (0, 100) to (400, 300)
        QSignalSpy hovered(&view, &ImageView::hoveredPixelChanged);

        mouse(view, QEvent::MouseMove, QPointF(399.5, 299.5), Qt::NoButton);
        QCOMPARE(view.hoveredPixel(), QPoint(199, 99));
        mouse(view, QEvent::MouseMove, QPointF(10, 50), Qt::NoButton);
        QCOMPARE(view.hoveredPixel(), QPoint(-1, -1));

        QCOMPARE(hovered.count(), 2);
        QCOMPARE(hovered.at(0).at(0).toPoint(), QPoint(199, 99));
        QCOMPARE(hovered.at(1).at(0).toPoint(), QPoint(-1, -1));
    }

    void aBurstOfImagesPaintsOnlyTheLatest()
    {
        ImageView view;
        QVERIFY(showAt(view, 64, 64));
        QSignalSpy painted(&view, &ImageView::imagePainted);

        // Faster than any screen: nothing reaches the event loop in between.
        const QColor colours[] = {Qt::red, Qt::green, Qt::blue, Qt::yellow};
        for (const QColor& colour : colours) {
            view.setImage(filled(8, 8, colour));
        }

        QVERIFY(painted.wait());
        QCOMPARE(view.paintedCount(), quint64(1));
        QCOMPARE(view.grab().toImage().pixelColor(32, 32), QColor(Qt::yellow));
        // Repaints of the same image are not counted as images shown.
        view.repaint();
        QCOMPARE(view.paintedCount(), quint64(1));
    }

    void aMessageReplacesTheImage()
    {
        ImageView view;
        QVERIFY(showAt(view, 200, 100));
        view.setImage(filled(8, 8, Qt::red));

        view.setMessage(QStringLiteral("Pixel format 0x1 can't be shown"));

        QVERIFY(view.image().isNull());
        QCOMPARE(view.message(), QStringLiteral("Pixel format 0x1 can't be shown"));
        const QImage shown = view.grab().toImage();
        QVERIFY(shown.pixelColor(0, 0) != QColor(Qt::red));
        QVERIFY(shown.pixelColor(100, 50) != QColor(Qt::red));
    }
};

QTEST_MAIN(TestImageView)
#include "tst_imageview.moc"
