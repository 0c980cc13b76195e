// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0

/// A row of a list of entries, led by the category's name when it is the category's first.
Column {
    id: row

    required property var object
    required property string category
    property bool showsCategory
    property int column

    readonly property var path: object.location()
    readonly property bool first: ListView.previousSection !== ListView.section
    readonly property bool last: ListView.nextSection !== ListView.section

    Controls.AbstractButton {
        visible: row.showsCategory && row.first
        x: Kirigami.Units.gridUnit
        topPadding: Kirigami.Units.gridUnit
        bottomPadding: Kirigami.Units.smallSpacing
        onClicked: applicationWindow().openEntry(row.path.slice(0, -1), row.column)

        contentItem: RowLayout {
            spacing: Kirigami.Units.smallSpacing

            Controls.Label {
                text: row.category
                font.bold: true
                color: Kirigami.Theme.linkColor
            }
            Kirigami.Icon {
                implicitWidth: Kirigami.Units.iconSizes.small
                implicitHeight: implicitWidth
                source: "go-next-symbolic"
                isMask: true
                color: Kirigami.Theme.linkColor
            }
        }
    }

    Controls.AbstractButton {
        id: button

        x: Kirigami.Units.largeSpacing
        width: row.width - 2 * x
        leftPadding: Kirigami.Units.largeSpacing
        rightPadding: Kirigami.Units.largeSpacing
        topPadding: Kirigami.Units.largeSpacing
        bottomPadding: Kirigami.Units.largeSpacing
        onClicked: applicationWindow().openEntry(row.path, row.column)

        background: CardBackground {
            Kirigami.Theme.colorSet: Kirigami.Theme.View
            Kirigami.Theme.inherit: false
            first: row.first
            last: row.last
            color: row.ListView.isCurrentItem || button.down
                ? Kirigami.ColorUtils.tintWithAlpha(Kirigami.Theme.backgroundColor, Kirigami.Theme.highlightColor, 0.2)
                : Kirigami.Theme.backgroundColor

            Kirigami.Separator {
                visible: !row.last
                anchors {
                    left: parent.left
                    right: parent.right
                    bottom: parent.bottom
                    leftMargin: label.x + button.leftPadding
                }
                opacity: 0.5
            }
        }

        contentItem: RowLayout {
            spacing: Kirigami.Units.largeSpacing

            EntryIcon {
                source: row.object.icon
            }
            EntryLabel {
                id: label
                Layout.fillWidth: true
                title: row.object.title
                subtitle: row.object.shortTitle || childTitles.join(", ")

                readonly property var childTitles: {
                    const titles = []
                    for (let i = 0; i < children.count; ++i) {
                        titles.push(children.objectAt(i).title)
                    }
                    return titles
                }
                readonly property SettingsModel children: SettingsModel {
                    path: row.path
                    depth: 1
                }
            }
            Kirigami.Icon {
                implicitWidth: Kirigami.Units.iconSizes.small
                implicitHeight: implicitWidth
                source: "go-next-symbolic"
                isMask: true
                color: Kirigami.Theme.textColor
                opacity: 0.5
            }
        }
    }
}
