#pragma once

// The ids by which the host knows its menus, menu groups, context menus and contexts.
namespace Plugin {
namespace AppCore {
namespace Constants {

constexpr char C_GLOBAL_CONTEXT[] = "AppCore.Global.Context";

constexpr char M_CAMERA[] = "VantoViewer.Menu.Camera";
constexpr char M_WINDOW[] = "VantoViewer.Menu.Window";

constexpr char G_CAMERA_DEVICES[] = "VantoViewer.Group.Camera.Devices";
constexpr char G_CAMERA_FEATURES[] = "VantoViewer.Group.Camera.Features";
constexpr char G_WINDOW_WINDOWS[] = "VantoViewer.Group.Window.Windows";

constexpr char CM_FEATURE_TREE[] = "VantoViewer.FeatureTreeContextMenu";

} // namespace Constants
} // namespace AppCore
} // namespace Plugin
