// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings.toolkit 1.0

/// The user's favourites: pages to open, values, and actions to call.
Kirigami.ScrollablePage {
    id: page

    property bool editing: false
    readonly property string path: applicationWindow().topPath
    readonly property int column: Kirigami.ColumnView.index

    title: qsTrId("settings-he-favorites")
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(column)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false
    leftPadding: Kirigami.Units.largeSpacing
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.largeSpacing
    bottomPadding: Kirigami.Units.largeSpacing

    actions.main: Kirigami.Action {
        icon.name: "document-edit"
        text: qsTrId("settings-bt-edit")
        checkable: true
        checked: page.editing
        onTriggered: page.editing = checked
    }
    actions.right: Kirigami.Action {
        icon.name: "list-add"
        text: qsTrId("settings-bt-add")
        onTriggered: applicationWindow().openFavoriteChoice(page.column)
    }

    footer: ActionOutcome {
        id: outcome
        entry: SettingsEntry {
            favoritesKey: ""
        }
    }

    function open(path) {
        applicationWindow().openEntry(path, column)
    }

    function run(path) {
        outcome.entry.path = path
        outcome.run()
    }

    Column {
        spacing: Kirigami.Units.gridUnit

        EntryLabel {
            x: Kirigami.Units.largeSpacing
            width: parent.width - 2 * x
            title: tiles.favorites.userModified
                ? qsTrId("settings-la-favorites_modified")
                : qsTrId("settings-la-favorites_default")
            subtitle: page.editing ? qsTrId("settings-la-favorites_help") : ""
        }
        FavoritesSection {
            id: tiles
            width: parent.width
            heading: qsTrId("settings-he-favorite_tiles")
            filter: ["grid_favorites"]
            tiles: true
            editing: page.editing
            onActivated: page.open(path)
        }
        FavoritesSection {
            width: parent.width
            heading: qsTrId("settings-he-favorite_rows")
            filter: ["list_favorites"]
            editing: page.editing
            onActivated: page.open(path)
        }
        FavoritesSection {
            width: parent.width
            heading: qsTrId("settings-he-favorite_actions")
            filter: ["action"]
            editing: page.editing
            onActivated: page.run(path)
        }
    }
}
