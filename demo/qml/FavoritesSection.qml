// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// The favourites of some kinds under a heading.
Column {
    id: section

    property alias heading: headingLabel.text
    property alias filter: favorites.filter
    property alias tiles: view.tiles
    property alias editing: view.editing
    readonly property alias favorites: favorites

    signal activated(int row, var path)

    spacing: Kirigami.Units.smallSpacing

    /// Returns the title of the action that calls method, empty if it is not a favourite.
    function titleOfCall(method) {
        for (let row = 0; row < favorites.count; ++row) {
            const params = favorites.get(row).params
            const slot = view.itemAtIndex(row)
            if (params && slot && params["remote-method"] === method) {
                return slot.title
            }
        }
        return ""
    }

    HeadingLabel {
        id: headingLabel
        x: Kirigami.Units.largeSpacing
        width: section.width - 2 * x
    }

    FavoritesView {
        id: view
        width: section.width
        model: Favorites {
            id: favorites
        }
        onActivated: section.activated(row, path)
    }

    SecondaryLabel {
        x: Kirigami.Units.largeSpacing
        width: section.width - 2 * x
        visible: favorites.count === 0
        text: qsTrId("settings-la-no_favorites")
    }
}
