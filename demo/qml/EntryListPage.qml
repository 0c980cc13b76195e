// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0
import com.velka.settings.toolkit 1.0

/// The entries depth levels below path; deeper than one level they are grouped by their category.
Kirigami.ScrollablePage {
    id: page

    property string path
    property bool navigated: false
    property int depth: 1
    property bool isTop: false
    readonly property int column: Kirigami.ColumnView.index
    readonly property StableListModel entries: StableListModel {
        sourceModel: SettingsModel {
            path: applicationWindow().names(page.path)
            depth: page.depth
        }
    }

    title: entry.title
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(column)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false

    actions.main: Kirigami.Action {
        visible: !page.isTop
        icon.name: "documentinfo"
        text: qsTrId("settings-bt-details")
        onTriggered: applicationWindow().openDetails(page.path, page.column)
    }
    actions.left: Kirigami.Action {
        visible: page.isTop
        icon.name: "favorite"
        text: qsTrId("settings-he-favorites")
        onTriggered: applicationWindow().openFavorites()
    }
    actions.right: Kirigami.Action {
        visible: page.isTop
        icon.name: "application-menu"
        text: qsTrId("settings-he-files")
        displayHint: Kirigami.DisplayHint.IconOnly
        onTriggered: applicationWindow().setDrawerOpen(!applicationWindow().contextDrawer.drawerOpen)
    }

    PageList {
        id: list
        model: page.entries
        // Creates all rows at once, because the list only estimates the heights of rows that do not exist yet.
        cacheBuffer: 4000
        openPath: applicationWindow().pathShownIn(page.column)
        // The tapped row stays visible when its page makes the list narrower.
        onWidthChanged: {
            if (openPath) {
                positionViewAtIndex(currentIndex, ListView.Center)
            }
        }
        section.property: "category"
        topMargin: Kirigami.Units.largeSpacing
        bottomMargin: Kirigami.Units.largeSpacing
        delegate: EntryRow {
            width: ListView.view.width
            showsCategory: page.depth > 1
            column: page.column
        }
        footer: page.isTop && page.path ? otherTrees : null

        SecondaryLabel {
            anchors.centerIn: parent
            width: parent.width - Kirigami.Units.gridUnit * 4
            horizontalAlignment: Text.AlignHCenter
            visible: page.entries.count === 0
            text: qsTrId("settings-la-no_entries")
        }
    }

    SettingsEntry {
        id: entry
        path: page.path
        favoritesKey: ""
    }

    /// The trees of packages beside the settings.
    Component {
        id: otherTrees

        Column {
            width: list.width
            topPadding: Kirigami.Units.gridUnit

            Repeater {
                model: applicationWindow().trees

                EntryButton {
                    readonly property var object: model.object
                    readonly property string path: object ? object.location().join("/") : ""

                    visible: path !== page.path
                    x: Kirigami.Units.largeSpacing
                    width: parent.width - 2 * x
                    current: applicationWindow().pathShownIn(page.column) === path
                    iconName: object ? object.icon : ""
                    title: object ? object.title : ""
                    subtitle: object ? object.shortTitle : ""
                    onClicked: applicationWindow().openEntry(path, page.column)
                }
            }
        }
    }
}
