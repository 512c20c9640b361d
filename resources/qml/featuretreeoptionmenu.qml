import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import QtQuick.Window 2.15
import FeatureOptionsMenu 1.0

// The feature tab editor. Each edit of the user is one of the signals below; the menu item applies
// nameChanged, addFeature, removeFeature and remove to itself before anyone else hears them, and
// the owner decides on "OK" and "Cancel" what is kept.
FeatureOptionsMenu {
    id: menu

    signal nameChanged(int userTabIndex, string name)
    signal cancel()
    signal add()
    signal remove(int userTabIndex)
    signal addFeature(int userTabIndex, string featureFullName)
    signal removeFeature(int userTabIndex, string featureFullName)
    signal newFeatureNameList(int userTabIndex)
    signal hide()

    // Drags from the feature table are widget drags: QML sees no source object for them, so the
    // table names itself in a format of its own next to the feature's full name in "text/plain".
    readonly property string tableViewObjectName: "nodescopeTableView"
    readonly property string dragSourceFormat: "application/x-nodescope-source"

    readonly property real dp: Screen.logicalPixelDensity > 0
                               ? Screen.logicalPixelDensity * 25.4 / 96 : 1
    readonly property bool hasSelectedTab: userTabIndex >= 0
                                           && userTabIndex < supportedUserTabCount
    readonly property string selectedTabName: hasSelectedTab ? userTabNames[userTabIndex] : ""
    readonly property bool canAddFeatures: hasSelectedTab && selectedTabName !== ""
    readonly property var selectedFeatures: hasSelectedTab ? featureLists[userTabIndex] : []

    objectName: "featureOptionsMenu"
    implicitWidth: 350
    implicitHeight: defaultWindowHeight
    // Follows the window whatever resize mode the view uses.
    width: parent && parent.width > 0 ? parent.width : implicitWidth
    height: parent && parent.height > 0 ? parent.height : implicitHeight

    function isFromFeatureTable(event) {
        if (event.source && event.source.objectName === tableViewObjectName) {
            return true
        }
        return event.formats.indexOf(dragSourceFormat) >= 0
                && event.getDataAsString(dragSourceFormat) === tableViewObjectName
    }

    function addDroppedFeature(fullName) {
        var tab = userTabIndex
        addFeature(tab, fullName)
        newFeatureNameList(tab)
    }

    function removeFeatureFromTab(tab, fullName) {
        removeFeature(tab, fullName)
        newFeatureNameList(tab)
    }

    Pane {
        id: page
        anchors.fill: parent
        padding: 0
        font.pointSize: 9

        background: Rectangle {
            color: page.palette.window
        }

        ColumnLayout {
            anchors.fill: parent
            spacing: 0

            // Title bar: the window itself carries no title text.
            Rectangle {
                Layout.fillWidth: true
                Layout.preferredHeight: Math.round(40 * menu.dp)
                color: page.palette.base

                Label {
                    objectName: "titleLabel"
                    anchors.left: parent.left
                    anchors.leftMargin: Math.round(14 * menu.dp)
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Edit Feature Tabs")
                    font.pointSize: 11
                    font.bold: true
                }

                ToolButton {
                    id: closeButton
                    objectName: "closeButton"
                    anchors.right: parent.right
                    anchors.rightMargin: Math.round(6 * menu.dp)
                    anchors.verticalCenter: parent.verticalCenter
                    implicitWidth: Math.round(28 * menu.dp)
                    implicitHeight: Math.round(28 * menu.dp)
                    padding: Math.round(7 * menu.dp)
                    hoverEnabled: true
                    ToolTip.visible: hovered
                    ToolTip.delay: 600
                    ToolTip.text: qsTr("Close")
                    background: Rectangle {
                        radius: Math.round(3 * menu.dp)
                        color: closeButton.down ? Qt.rgba(0, 0, 0, 0.16)
                                                : closeButton.hovered ? Qt.rgba(0, 0, 0, 0.08)
                                                                      : "transparent"
                    }
                    contentItem: Image {
                        source: "image://standardIcons/SP_TitleBarCloseButton"
                        sourceSize.width: Math.round(14 * menu.dp)
                        sourceSize.height: Math.round(14 * menu.dp)
                        fillMode: Image.PreserveAspectFit
                        horizontalAlignment: Image.AlignHCenter
                        verticalAlignment: Image.AlignVCenter
                    }
                    onClicked: menu.hide()
                }

                Rectangle {
                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.bottom: parent.bottom
                    height: 1
                    color: page.palette.mid
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.margins: Math.round(12 * menu.dp)
                spacing: Math.round(4 * menu.dp)

                Label {
                    text: qsTr("Feature tabs")
                    font.bold: true
                    Layout.bottomMargin: Math.round(2 * menu.dp)
                }

                Repeater {
                    model: menu.supportedUserTabCount

                    EditTabName {
                        Layout.fillWidth: true
                        dp: menu.dp
                        font.pointSize: 8
                        tabIndex: index
                        tabName: menu.userTabNames[index]
                        selected: menu.userTabIndex === index
                        deleteIconUrl: menu.deleteIconUrl
                        deleteIconDisabledUrl: menu.deleteIconDisabledUrl

                        onSelectRequested: menu.userTabIndex = index
                        onNameEdited: menu.nameChanged(index, name)
                        onRemoveRequested: menu.remove(index)
                    }
                }

                Label {
                    objectName: "featuresCaption"
                    Layout.fillWidth: true
                    Layout.topMargin: Math.round(10 * menu.dp)
                    Layout.bottomMargin: Math.round(2 * menu.dp)
                    font.bold: true
                    elide: Text.ElideRight
                    text: menu.canAddFeatures ? qsTr("Features of \"%1\"").arg(menu.selectedTabName)
                                              : qsTr("Features")
                }

                DropArea {
                    id: dropArea
                    objectName: "featureDropArea"
                    Layout.fillWidth: true
                    Layout.preferredHeight: Math.round(64 * menu.dp)
                    enabled: menu.canAddFeatures

                    onEntered: drag.accepted = menu.isFromFeatureTable(drag) && drag.hasText
                    onDropped: {
                        var fullName = drop.text.trim()
                        if (!menu.canAddFeatures || !menu.isFromFeatureTable(drop)
                                || fullName === "") {
                            drop.accepted = false
                            return
                        }
                        menu.addDroppedFeature(fullName)
                        // A copy where the drag allows it: the table must keep its row.
                        if (drop.supportedActions & Qt.CopyAction) {
                            drop.accept(Qt.CopyAction)
                        } else {
                            drop.acceptProposedAction()
                        }
                    }

                    Rectangle {
                        anchors.fill: parent
                        radius: Math.round(4 * menu.dp)
                        color: dropArea.containsDrag
                               ? Qt.rgba(page.palette.highlight.r, page.palette.highlight.g,
                                         page.palette.highlight.b, 0.15)
                               : (menu.canAddFeatures ? page.palette.base : "transparent")
                        border.width: dropArea.containsDrag ? 2 : 1
                        border.color: dropArea.containsDrag ? page.palette.highlight
                                                            : page.palette.mid

                        Row {
                            anchors.centerIn: parent
                            spacing: Math.round(10 * menu.dp)

                            Image {
                                anchors.verticalCenter: parent.verticalCenter
                                source: menu.canAddFeatures ? menu.dragHandIconUrl
                                                            : menu.dragHandIconDisabledUrl
                                sourceSize.width: Math.round(28 * menu.dp)
                                sourceSize.height: Math.round(28 * menu.dp)
                            }

                            Label {
                                objectName: "dropHint"
                                anchors.verticalCenter: parent.verticalCenter
                                text: qsTr("Add features by drag and drop")
                                color: menu.canAddFeatures ? page.palette.windowText
                                                           : page.palette.mid
                            }
                        }
                    }
                }

                Flickable {
                    id: featureArea
                    objectName: "featureArea"
                    Layout.fillWidth: true
                    Layout.topMargin: Math.round(4 * menu.dp)
                    Layout.preferredHeight: Math.min(chipFlow.implicitHeight,
                                                     Layout.maximumHeight)
                    Layout.maximumHeight: menu.height * 55 / menu.defaultWindowHeight
                    contentWidth: width
                    contentHeight: chipFlow.implicitHeight
                    clip: true
                    boundsBehavior: Flickable.StopAtBounds
                    ScrollBar.vertical: ScrollBar {}

                    Flow {
                        id: chipFlow
                        width: featureArea.width
                        spacing: Math.round(4 * menu.dp)

                        Repeater {
                            model: menu.selectedFeatures

                            Feature {
                                dp: menu.dp
                                font.pointSize: 8
                                featureName: modelData.name
                                featureFullName: modelData.fullName
                                onRemoveClicked: menu.removeFeatureFromTab(menu.userTabIndex,
                                                                           featureFullName)
                            }
                        }
                    }
                }

                Item {
                    Layout.fillHeight: true
                }
            }

            Rectangle {
                Layout.fillWidth: true
                Layout.preferredHeight: 1
                color: page.palette.mid
            }

            RowLayout {
                Layout.fillWidth: true
                Layout.margins: Math.round(10 * menu.dp)
                spacing: Math.round(8 * menu.dp)

                Item {
                    Layout.fillWidth: true
                }

                Button {
                    objectName: "okButton"
                    text: qsTr("OK")
                    highlighted: true
                    implicitHeight: Math.round(28 * menu.dp)
                    Layout.preferredWidth: Math.round(80 * menu.dp)
                    onClicked: {
                        if (menu.hasSelectedTab) {
                            menu.add()
                        } else {
                            menu.cancel()
                        }
                    }
                }

                Button {
                    objectName: "cancelButton"
                    text: qsTr("Cancel")
                    implicitHeight: Math.round(28 * menu.dp)
                    Layout.preferredWidth: Math.round(80 * menu.dp)
                    onClicked: menu.cancel()
                }
            }
        }
    }
}
