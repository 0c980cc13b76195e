// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15

/// The list of a page. The tabulator key reaches one row of it, the current one, and the arrow keys make another row
/// the current one.
ListView {
    id: list

    /// The path of the entry whose page is visible beside this one, or which an address names.
    property string openPath

    highlightMoveDuration: 0
    onCountChanged: {
        if (currentIndex < 0 && count > 0) {
            currentIndex = 0
        }
    }
    // The page makes the list itself a stop of the tabulator key.
    onActiveFocusOnTabChanged: activeFocusOnTab = false

    /// Makes a row the current one, once the list is complete.
    function showRow(row) {
        Qt.callLater(() => currentIndex = row)
    }

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
