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

    signal activated(string path)

    spacing: Kirigami.Units.smallSpacing

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
        onActivated: section.activated(path)
    }

    SecondaryLabel {
        x: Kirigami.Units.largeSpacing
        width: section.width - 2 * x
        visible: favorites.count === 0
        text: qsTrId("settings-la-no_favorites")
    }
}
