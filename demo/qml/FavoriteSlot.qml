// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings.toolkit 1.0

/// A cell of a view with its favourite, which the user can drag to another cell while the view is editing.
FocusScope {
    id: slot

    required property int index
    required property var object
    property GridView view
    property bool tile: false
    property bool editing: false
    property int columns: 1

    readonly property string title: object ? object.title : ""
    readonly property alias path: entry.path

    signal activated()

    objectName: "favorite " + path
    width: view.cellWidth
    height: view.cellHeight
    z: grip.pressed ? 1 : 0
    onActiveFocusChanged: {
        if (activeFocus) {
            view.currentIndex = index
        }
    }

    readonly property int focusPolicy: GridView.isCurrentItem || activeFocus ? Qt.StrongFocus : Qt.ClickFocus

    function moveTo(row) {
        if (row >= 0 && row < view.count && row !== index) {
            view.model.move(index, row)
        }
    }

    function remove() {
        view.model.removeFavorite(path)
    }

    Keys.enabled: editing
    Keys.onDeletePressed: remove()
    Keys.onPressed: event => {
        const steps = {}
        steps[Qt.Key_Left] = -1
        steps[Qt.Key_Right] = 1
        steps[Qt.Key_Up] = -columns
        steps[Qt.Key_Down] = columns
        if (event.modifiers & Qt.ControlModifier && event.key in steps) {
            event.accepted = true
            moveTo(index + steps[event.key])
        }
    }

    SettingsEntry {
        id: entry
        path: slot.object ? slot.object.location().join("/") : ""
        favoritesKey: ""
    }

    Controls.AbstractButton {
        id: button

        focus: true
        focusPolicy: slot.focusPolicy
        Accessible.focusable: true
        Accessible.name: slot.title
        Accessible.description: place.text
        // In its cell, or below the pointer that drags it.
        x: grip.pressed ? grip.pointer.x - grip.hold.x - slot.x : margin
        y: grip.pressed ? grip.pointer.y - grip.hold.y - slot.y : margin
        width: slot.width - 2 * margin
        height: slot.height - 2 * margin
        leftPadding: Kirigami.Units.largeSpacing
        rightPadding: Kirigami.Units.largeSpacing + (removal.visible && !slot.tile ? removal.width : 0)
        topPadding: slot.tile ? Kirigami.Units.largeSpacing : Kirigami.Units.smallSpacing
        bottomPadding: Kirigami.Units.smallSpacing
        onClicked: {
            if (!slot.editing) {
                slot.activated()
            }
        }

        readonly property int margin: Kirigami.Units.smallSpacing

        background: CardBackground {
            Kirigami.Theme.colorSet: Kirigami.Theme.View
            Kirigami.Theme.inherit: false
            color: button.down || grip.pressed
                ? Kirigami.ColorUtils.tintWithAlpha(Kirigami.Theme.backgroundColor, Kirigami.Theme.highlightColor, 0.2)
                : Kirigami.Theme.backgroundColor

            FocusFrame {
                control: button
            }
        }

        contentItem: GridLayout {
            columns: slot.tile ? 1 : 2
            columnSpacing: Kirigami.Units.largeSpacing
            rowSpacing: Kirigami.Units.smallSpacing

            EntryIcon {
                Layout.alignment: Qt.AlignCenter
                name: slot.object ? slot.object.icon : ""
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.fillHeight: slot.tile
                // Icons above one and above two lines of text have the same height.
                Layout.minimumHeight: slot.tile ? Kirigami.Units.gridUnit * 2 : 0
                spacing: 0

                PlainLabel {
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    Layout.alignment: Qt.AlignTop
                    horizontalAlignment: slot.tile ? Text.AlignHCenter : Text.AlignLeft
                    wrapMode: Text.Wrap
                    maximumLineCount: slot.tile ? 2 : 1
                    elide: Text.ElideRight
                    text: slot.title
                }
                SecondaryLabel {
                    id: place
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    visible: !slot.tile && text !== ""
                    font: Kirigami.Theme.smallFont
                    maximumLineCount: 1
                    elide: Text.ElideRight
                    text: applicationWindow().titlesAbove(entry)
                }
            }
        }
    }

    MouseArea {
        id: grip

        property point pointer // in the view
        property point hold // in the button

        function follow(mouse) {
            pointer = mapToItem(slot.view.contentItem, mouse.x, mouse.y)
        }

        anchors.fill: parent
        enabled: slot.editing
        cursorShape: pressed ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        // Otherwise the page would scroll.
        preventStealing: true
        onPressed: mouse => {
            hold = mapToItem(button, mouse.x, mouse.y)
            follow(mouse)
        }
        onPositionChanged: mouse => {
            follow(mouse)
            slot.moveTo(slot.view.indexAt(pointer.x, pointer.y))
        }
    }

    Controls.RoundButton {
        id: removal
        objectName: "remove " + slot.path
        visible: slot.editing && !grip.pressed
        focusPolicy: slot.focusPolicy
        Accessible.name: text
        Accessible.description: slot.title
        anchors {
            right: parent.right
            top: slot.tile ? parent.top : undefined
            verticalCenter: slot.tile ? undefined : parent.verticalCenter
            rightMargin: slot.tile ? 0 : Kirigami.Units.largeSpacing
        }
        icon.name: "list-remove"
        text: qsTrId("settings-bt-remove")
        display: Controls.AbstractButton.IconOnly
        onClicked: slot.remove()
    }
}
