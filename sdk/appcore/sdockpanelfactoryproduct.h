#pragma once

#include <core/cid.h>

#include <QIcon>
#include <QString>

class QWidget;

namespace Plugin {
namespace AppCore {

// What a dock panel factory hands to the host. A product without a widget means that the
// factory could not make one; the host then shows no panel.
struct SDockPanelFactoryProduct {
    // The host's code for its default dock area, where panels open unless the saved layout
    // says otherwise.
    static constexpr int DefaultDockArea = 5;
    // The host's panel feature flag for a panel that the user can close.
    static constexpr int ClosableDockFeature = 1;

    QWidget* widget = nullptr; // not owned: the host parents it into its dock
    QString title;
    QIcon icon;
    Core::CId id;
    int dockArea = DefaultDockArea;
    int dockFeatures = ClosableDockFeature;
};

} // namespace AppCore
} // namespace Plugin
