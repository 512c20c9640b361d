#pragma once

namespace Plugin {
namespace Nodescope {

// The plug-in's resources (icons, QML, use cases, the host components' images) live in a static
// library; whoever uses them first makes sure they are registered. Safe to call often.
void initNodescopeResources();

} // namespace Nodescope
} // namespace Plugin
