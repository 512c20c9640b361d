import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// One feature of the selected tab: its display name and a button that takes it off the tab.
Control {
    id: chip

    property string featureName: ""
    property string featureFullName: ""
    property real dp: 1

    signal removeClicked()

    objectName: "feature:" + featureFullName
    implicitWidth: leftPadding + rightPadding + contentItem.implicitWidth
    implicitHeight: Math.round(22 * dp)
    leftPadding: Math.round(9 * dp)
    rightPadding: Math.round(3 * dp)
    topPadding: 0
    bottomPadding: 0
    hoverEnabled: true

    // The full name tells features of different node maps apart.
    ToolTip.visible: hovered
    ToolTip.delay: 600
    ToolTip.text: featureFullName

    background: Rectangle {
        radius: height / 2
        color: Qt.rgba(chip.palette.highlight.r, chip.palette.highlight.g,
                       chip.palette.highlight.b, 0.10)
        border.width: 1
        border.color: Qt.rgba(chip.palette.highlight.r, chip.palette.highlight.g,
                              chip.palette.highlight.b, 0.45)
    }

    contentItem: RowLayout {
        spacing: Math.round(3 * chip.dp)

        Label {
            objectName: "featureName"
            text: chip.featureName
            elide: Text.ElideRight
            Layout.maximumWidth: Math.round(220 * chip.dp)
        }

        AbstractButton {
            id: removeButton
            objectName: "removeFeatureButton:" + chip.featureFullName
            implicitWidth: Math.round(16 * chip.dp)
            implicitHeight: Math.round(16 * chip.dp)
            hoverEnabled: true
            Accessible.name: qsTr("Remove %1").arg(chip.featureName)
            background: Rectangle {
                radius: width / 2
                color: removeButton.hovered ? Qt.rgba(0, 0, 0, 0.12) : "transparent"
            }
            contentItem: Image {
                source: "image://standardIcons/SP_TitleBarCloseButton"
                sourceSize.width: Math.round(10 * chip.dp)
                sourceSize.height: Math.round(10 * chip.dp)
                fillMode: Image.PreserveAspectFit
                horizontalAlignment: Image.AlignHCenter
                verticalAlignment: Image.AlignVCenter
            }
            onClicked: chip.removeClicked()
        }
    }
}
