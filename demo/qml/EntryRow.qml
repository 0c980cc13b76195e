// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0

/// A row of a list of entries. The name of the category is above its first row.
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

            PlainLabel {
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

    EntryButton {
        objectName: "entry " + row.path.join("/")
        x: Kirigami.Units.largeSpacing
        width: row.width - 2 * x
        first: row.first
        last: row.last
        current: row.ListView.isCurrentItem
        iconName: row.object.icon
        title: row.object.title
        subtitle: row.object.shortTitle || childTitles.join(", ")
        onClicked: applicationWindow().openEntry(row.path, row.column)

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
}
