import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// One user tab: its number, its name (edited in place) and a button that removes the tab.
// Clicking anywhere on the row, or into the name, selects the tab.
Control {
    id: row

    property int tabIndex: 0
    property string tabName: ""
    property bool selected: false
    property string deleteIconUrl: ""
    property string deleteIconDisabledUrl: ""
    property real dp: 1

    signal selectRequested()
    signal nameEdited(string name)
    signal removeRequested()

    objectName: "editTabName" + tabIndex
    implicitHeight: Math.round(30 * dp)
    padding: 0
    leftPadding: Math.round(6 * dp)
    rightPadding: Math.round(2 * dp)

    background: Rectangle {
        radius: Math.round(3 * row.dp)
        color: row.selected ? Qt.rgba(row.palette.highlight.r, row.palette.highlight.g,
                                      row.palette.highlight.b, 0.12)
                            : "transparent"
        border.width: 1
        border.color: row.selected ? row.palette.highlight : "transparent"

        MouseArea {
            anchors.fill: parent
            onClicked: row.selectRequested()
        }
    }

    // The field keeps what the user typed; a name set from outside (reset, removal) wins.
    onTabNameChanged: nameField.text = tabName

    contentItem: RowLayout {
        spacing: Math.round(6 * row.dp)

        Label {
            text: (row.tabIndex + 1) + "."
            font.bold: row.selected
            color: row.tabName === "" ? row.palette.mid : row.palette.windowText
            Layout.preferredWidth: Math.round(14 * row.dp)
        }

        TextField {
            id: nameField
            objectName: "tabNameField" + row.tabIndex
            Layout.fillWidth: true
            Layout.preferredHeight: Math.round(24 * row.dp)
            topPadding: 0
            bottomPadding: 0
            leftPadding: Math.round(6 * row.dp)
            rightPadding: Math.round(6 * row.dp)
            verticalAlignment: TextInput.AlignVCenter
            selectByMouse: true
            text: row.tabName
            placeholderText: qsTr("Enter a name for tab %1").arg(row.tabIndex + 1)
            background: Rectangle {
                color: row.palette.base
                border.width: 1
                border.color: nameField.activeFocus ? row.palette.highlight : row.palette.mid
                radius: Math.round(2 * row.dp)
            }

            onActiveFocusChanged: {
                if (activeFocus) {
                    row.selectRequested()
                }
            }
            onEditingFinished: {
                // Surrounding blanks are never meant; a name of blanks is no name.
                var name = text.trim()
                if (name !== row.tabName) {
                    row.nameEdited(name)
                }
                text = row.tabName
            }
            Keys.onEscapePressed: {
                text = row.tabName
                focus = false
            }
        }

        ToolButton {
            id: removeButton
            objectName: "removeTabButton" + row.tabIndex
            enabled: row.tabName !== ""
            Layout.preferredWidth: Math.round(26 * row.dp)
            Layout.preferredHeight: Math.round(26 * row.dp)
            padding: Math.round(4 * row.dp)
            hoverEnabled: true
            ToolTip.visible: hovered
            ToolTip.delay: 600
            ToolTip.text: qsTr("Remove this tab")
            background: Rectangle {
                radius: Math.round(3 * row.dp)
                color: removeButton.down ? Qt.rgba(0, 0, 0, 0.16)
                                         : removeButton.hovered ? Qt.rgba(0, 0, 0, 0.08)
                                                                : "transparent"
            }
            contentItem: Image {
                source: removeButton.enabled ? row.deleteIconUrl : row.deleteIconDisabledUrl
                sourceSize.width: Math.round(16 * row.dp)
                sourceSize.height: Math.round(16 * row.dp)
                fillMode: Image.PreserveAspectFit
                horizontalAlignment: Image.AlignHCenter
                verticalAlignment: Image.AlignVCenter
            }
            onClicked: row.removeRequested()
        }
    }
}
