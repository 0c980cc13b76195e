// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15

/// The list of a page. The tabulator key reaches one row of it, the current one, and the arrow keys make another row
/// the current one.
ListView {
    id: list

    /// The row whose page is visible beside this one, -1 without one.
    property int openRow: -1

    highlightMoveDuration: 0
    onOpenRowChanged: {
        if (openRow >= 0) {
            currentIndex = openRow
        }
    }
    onCountChanged: {
        if (currentIndex < 0 && count > 0) {
            currentIndex = 0
        }
    }
    // The page makes the list itself a stop of the tabulator key.
    onActiveFocusOnTabChanged: activeFocusOnTab = false

    Connections {
        target: list.headerItem

        // The list keeps its position when the header becomes higher, and would hide its beginning.
        function onHeightChanged() {
            if (list.currentIndex <= 0 && !list.moving) {
                list.positionViewAtBeginning()
            }
        }
    }
}
