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

    /// Gives the focus to the control of the current page that had it last, or to the first one.
    function enterPage() {
        const page = window.pageStack.currentItem
        if (!page || !window.keyboardUsed) {
            return
        }
        page.forceActiveFocus(Qt.TabFocusReason)
        if (!window.activeFocusItem.activeFocusOnTab) {
            page.flickable.forceActiveFocus(Qt.TabFocusReason)
        }
        if (window.activeFocusItem === page.flickable) {
            focusFirst(page)
        }
    }

    function focusFirst(page) {
        const first = page.flickable.nextItemInFocusChain()
        let parent = first
        while (parent && parent !== page) {
            parent = parent.parent
        }
        if (parent) {
            first.forceActiveFocus(Qt.TabFocusReason)
        }
    }

    /// Scrolls the current page by most of its height, which pages without controls need.
    function scrollPage(direction) {
        const area = window.pageStack.currentItem.flickable
        const top = area.originY - area.topMargin
        const bottom = area.originY + area.contentHeight + area.bottomMargin - area.height
        area.contentY = Math.max(top, Math.min(bottom, area.contentY + direction * area.height * 0.8))
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
    Shortcut {
        sequence: StandardKey.MoveToPreviousPage
        onActivated: focus.scrollPage(-1)
    }
    Shortcut {
        sequence: StandardKey.MoveToNextPage
        onActivated: focus.scrollPage(1)
    }

    Connections {
        target: focus.window

        function onActiveFocusItemChanged() {
            const item = focus.window.activeFocusItem
            if (item && item.action) {
                item.Accessible.name = item.action.text // a text that comes from an action is not the name
            }
            if (item && focus.window.keyboardUsed) {
                focus.scrollTo(item)
            }
        }
    }

    Connections {
        target: focus.window.pageStack

        function onCurrentItemChanged() {
            Qt.callLater(focus.enterPage) // when the page is complete
        }
    }

    Connections {
        target: focus.window.pageStack.columnView

        // The keyboard does not reach pages that are out of sight.
        function onVisibleItemsChanged() {
            for (let column = 0; column < target.count; ++column) {
                const page = focus.window.pageStack.get(column)
                page.enabled = target.visibleItems.indexOf(page) >= 0
            }
        }
    }
}
