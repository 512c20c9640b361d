#pragma once

namespace Plugin {
namespace Nodescope {
namespace Constants {

// The feature table names itself in its drags, because the options menu takes features only
// from there, and a drag from a widget reaches QML without its source object.
const char* const TABLE_VIEW_OBJECT_NAME = "nodescopeTableView";
const char* const DRAG_SOURCE_MIME_TYPE = "application/x-nodescope-source";

// The ids of the six feature panels; the host keeps each panel's place and state under them.
const char* const W_FEATURETREE_WIDGET_ALL = "Nodescope.Widget.All";
const char* const W_FEATURETREE_WIDGET_BASIC = "Nodescope.Widget.Basic";
const char* const W_FEATURETREE_WIDGET_USER_IDS[] = {
    "Nodescope.Widget.User0", "Nodescope.Widget.User1", "Nodescope.Widget.User2",
    "Nodescope.Widget.User3"};
const int USER_TAB_COUNT = 4;

const char* const A_COPY_CAMERA_FEATURES = "Nodescope.CopyCameraFeatures";
const char* const COPY_CAMERA_FEATURES_SHORTCUT = "Ctrl+Shift+C";
const char* const A_EDIT_FEATURE_TABS = "Nodescope.EditFeatureTabs";

// Settings of the application's default QSettings, all in this group. A user tab's name and
// feature list go under the key followed by the tab's index ("UserTabName0").
const char* const SETTINGS_GROUP = "Nodescope";
const char* const SETTINGS_USER_TAB_NAME = "UserTabName";
const char* const SETTINGS_USER_TAB_FEATURES = "UserTabFeatures";
// A panel's own settings go under the key, a slash and the panel's id
// ("Polling/Nodescope.Widget.All"): the width of the tree beside the feature table, the width of
// the tree's name column and whether its features are polled.
const char* const SETTINGS_CATEGORY_COLUMN_WIDTH = "CategoryColumnWidth";
const char* const SETTINGS_FEATURE_COLUMN_WIDTH = "FeatureColumnWidth";
const char* const SETTINGS_POLLING = "Polling";

// Panel state kept through the host's window service, per panel.
const char* const STATE_VISIBILITY = "Visibility";

} // namespace Constants
} // namespace Nodescope
} // namespace Plugin
