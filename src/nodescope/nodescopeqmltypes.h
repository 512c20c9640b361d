#pragma once

namespace Plugin {
namespace Nodescope {

// Makes the plug-in's QML types known to the engine: "FeatureOptionsMenu" 1.0 in the module of
// the same name, which the feature tab editor scene imports. Safe to call often.
void registerNodescopeQmlTypes();

} // namespace Nodescope
} // namespace Plugin
