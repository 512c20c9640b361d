#pragma once

namespace Plugin {
namespace Nodescope {
namespace Constants {

// The feature table names itself in its drags, because the options menu takes features only
// from there, and a drag from a widget reaches QML without its source object.
const char* const TABLE_VIEW_OBJECT_NAME = "nodescopeTableView";
const char* const DRAG_SOURCE_MIME_TYPE = "application/x-nodescope-source";

} // namespace Constants
} // namespace Nodescope
} // namespace Plugin
