// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// Favourites as tiles or as rows. The view shows all of them, and the page around it scrolls.
GridView {
    id: grid

    property bool tiles: false
    property bool editing: false
    readonly property int columns: Math.max(1, Math.floor(width / (Kirigami.Units.gridUnit * (tiles ? 7 : 17))))

    signal activated(string path)

    implicitHeight: contentHeight
    interactive: false
    keyNavigationEnabled: true
    onWidthChanged: Qt.callLater(positionViewAtBeginning) // which a mirrored view loses
    cellWidth: Math.max(1, Math.floor(width / columns))
    cellHeight: Kirigami.Units.gridUnit * (tiles ? 6.5 : 3.5)
    delegate: FavoriteSlot {
        view: grid
        tile: grid.tiles
        editing: grid.editing
        columns: grid.columns
        onActivated: grid.activated(path)
    }
}
