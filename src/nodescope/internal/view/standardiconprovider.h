#pragma once

#include <QQuickImageProvider>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

// Lends the application style's standard icons to QML, as "image://standardIcons/<name>":
// the feature chips of the feature tab editor take their remove button from it.
class CStandardIconProvider : public QQuickImageProvider {
public:
    static const char* const PROVIDER_ID; // "standardIcons"

    explicit CStandardIconProvider(ImageType type = QQuickImageProvider::Pixmap,
                                   Flags flags = Flags());

    QPixmap requestPixmap(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
