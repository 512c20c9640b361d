#include "standardiconprovider.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyle>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

namespace {

// Icons made of pixmaps never grow, and need not be square: the largest one, scaled to fit
// and centred on a transparent pixmap of exactly the size QML asked for.
QPixmap fitted(const QIcon& icon, const QSize& size)
{
    const QPixmap source = icon.pixmap(icon.actualSize(QSize(256, 256)));
    QPixmap result(size);
    result.fill(Qt::transparent);
    if (source.isNull()) {
        return result;
    }
    const QSize fittedSize =
        (source.size() / source.devicePixelRatio()).scaled(size, Qt::KeepAspectRatio);
    const QPoint topLeft((size.width() - fittedSize.width()) / 2,
                         (size.height() - fittedSize.height()) / 2);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(topLeft, fittedSize), source);
    return result;
}

} // namespace

const char* const CStandardIconProvider::PROVIDER_ID = "standardIcons";

CStandardIconProvider::CStandardIconProvider(ImageType type, Flags flags)
    : QQuickImageProvider(type, flags)
{}

QPixmap CStandardIconProvider::requestPixmap(const QString& id, QSize* size,
                                             const QSize& requestedSize)
{
    if (id != QLatin1String("SP_TitleBarCloseButton")) {
        return QPixmap();
    }
    // Widget styles need a QApplication; a bare QML scene simply gets no icon.
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        return QPixmap();
    }
    QStyle* style = QApplication::style();
    const QIcon icon = style ? style->standardIcon(QStyle::SP_TitleBarCloseButton) : QIcon();
    if (icon.isNull()) {
        return QPixmap();
    }
    QSize wanted = requestedSize;
    // QML may fix only one side of the source size; the icon is square.
    if (wanted.width() <= 0 && wanted.height() > 0) {
        wanted.setWidth(wanted.height());
    } else if (wanted.height() <= 0 && wanted.width() > 0) {
        wanted.setHeight(wanted.width());
    }
    if (!wanted.isValid() || wanted.isEmpty()) {
        const QList<QSize> sizes = icon.availableSizes();
        wanted = sizes.isEmpty() ? QSize(style->pixelMetric(QStyle::PM_SmallIconSize),
                                         style->pixelMetric(QStyle::PM_SmallIconSize))
                                 : sizes.first();
    }
    QPixmap pixmap = icon.pixmap(wanted);
    if (pixmap.isNull()) {
        return QPixmap();
    }
    if (pixmap.size() / pixmap.devicePixelRatio() != wanted) {
        pixmap = fitted(icon, wanted);
    }
    if (size) {
        *size = pixmap.size();
    }
    return pixmap;
}

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
