// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15

/// Keeps the focus of the keyboard in sight, and in the page that the user has opened or gone back to.
Item {
    id: focus

    property ApplicationWindow window

    /// Returns the area around the item that the user can scroll, null if there is none.
    function scrolledAround(item) {
        let area = item.parent
        while (area && !(area instanceof Flickable && area.interactive)) {
            area = area.parent
        }
        return area
    }

    function scrollTo(item) {
        const area = scrolledAround(item)
        if (area) {
            const top = item.mapToItem(area.contentItem, 0, 0).y
            const highest = Math.min(area.contentY, top)
            area.contentY = Math.max(highest, top + item.height - area.height)
        }
    }

    function goBack() {
        if (window.contextDrawer.drawerOpen) {
            window.setDrawerOpen(false)
        } else {
            window.pageStack.goBack()
        }
    }

    Shortcut {
        sequence: "Escape"
        onActivated: focus.goBack()
    }

    Connections {
        target: focus.window

        function onActiveFocusItemChanged() {
            const item = focus.window.activeFocusItem
            if (item && focus.window.keyboardUsed) {
                focus.scrollTo(item)
            }
        }
    }
}
