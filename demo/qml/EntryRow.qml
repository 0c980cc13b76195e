// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0

/// A row of a list of entries. The name of the category is above its first row.
FocusScope {
    id: row

    required property int index
    required property var object
    required property string category
    property bool showsCategory
    property int column

    readonly property string path: object ? object.location().join("/") : ""
    readonly property bool current: path !== "" && path === ListView.view.openPath
    readonly property bool first: ListView.previousSection !== ListView.section
    readonly property bool last: ListView.nextSection !== ListView.section
    readonly property int focusPolicy: ListView.isCurrentItem || activeFocus ? Qt.StrongFocus : Qt.ClickFocus

    implicitHeight: column.height
    onCurrentChanged: {
        if (current) {
            ListView.view.showRow(index)
        }
    }
    onActiveFocusChanged: {
        if (activeFocus) {
            ListView.view.currentIndex = index
        }
    }

    Column {
        id: column
        width: parent.width

        Controls.AbstractButton {
            id: category
            visible: row.showsCategory && row.first
            focusPolicy: row.focusPolicy
            Accessible.focusable: true
            Accessible.name: row.category
            anchors {
                left: parent.left
                leftMargin: Kirigami.Units.gridUnit
            }
            topPadding: Kirigami.Units.gridUnit
            bottomPadding: Kirigami.Units.smallSpacing
            onClicked: applicationWindow().openEntry(row.path.split("/").slice(0, -1).join("/"), row.column)

            background: FocusFrame {
                control: category
            }
            contentItem: Row {
                spacing: Kirigami.Units.smallSpacing

                HeadingLabel {
                    id: heading
                    Accessible.ignored: true
                    width: Math.min(implicitWidth, row.width - 4 * Kirigami.Units.gridUnit)
                    text: row.category
                }
                NextIcon {
                    anchors.verticalCenter: heading.verticalCenter
                    color: heading.color
                }
            }
        }

        EntryButton {
            objectName: "entry " + row.path
            x: Kirigami.Units.largeSpacing
            width: row.width - 2 * x
            first: row.first
            last: row.last
            focus: true
            focusPolicy: row.focusPolicy
            current: row.current
            iconName: row.object ? row.object.icon : ""
            title: row.object ? row.object.title : ""
            subtitle: row.object && row.object.shortTitle || childTitles.join(", ")
            onClicked: applicationWindow().openEntry(row.path, row.column)

            readonly property var childTitles: {
                const titles = []
                for (let i = 0; i < children.count; ++i) {
                    titles.push(children.objectAt(i).title)
                }
                return titles
            }
            readonly property SettingsModel children: SettingsModel {
                path: applicationWindow().names(row.path)
                depth: 1
            }
        }
    }
}
