// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0

Kirigami.ApplicationWindow {
    id: window

    property bool wide: false
    property bool animated: true
    property bool keyboardUsed: false

    /// The path and the depth of the model of the top page.
    property var topPath: ["system_settings"]
    property int topDepth: 2
    readonly property var applicationsPath: ["applications"]

    /// What is wrong with files, a line each. Only the preview has any.
    property var problems: []
    readonly property alias trees: tree
    readonly property int openPages: pageStack.depth
    readonly property int topRows: topPage.entries.count
    readonly property bool settled: !pageStack.columnView.moving && !drawer.animating
                                    && drawer.position === (drawer.drawerOpen ? 1 : 0)

    // The controls have colours of their own, which a dark palette does not change.
    palette.windowText: Kirigami.Theme.textColor
    palette.buttonText: Kirigami.Theme.textColor

    title: qsTrId("settings-he-settings")
    width: wide ? 1180 : 412
    height: wide ? 760 : 870
    // Large texts do not make the window larger than the screen of a phone.
    minimumWidth: Math.min(Kirigami.Units.gridUnit * 16, 360)
    minimumHeight: Math.min(Kirigami.Units.gridUnit * 20, 480)

    pageStack.globalToolBar.style: Kirigami.ApplicationHeaderStyle.ToolBar
    pageStack.globalToolBar.showNavigationButtons: Kirigami.ApplicationHeaderStyle.ShowBackButton
    pageStack.defaultColumnWidth: Kirigami.Units.gridUnit * 17
    pageStack.initialPage: EntryListPage {
        id: topPage
        isTop: true
        path: window.topPath
        entry: ({title: window.title})
        depth: window.topDepth
    }

    footer: Column {
        Repeater {
            model: window.problems

            Label {
                objectName: "problem"
                width: parent.width
                padding: Kirigami.Units.largeSpacing
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: modelData
                background: Rectangle {
                    color: Kirigami.ColorUtils.tintWithAlpha(Kirigami.Theme.backgroundColor,
                                                             Kirigami.Theme.negativeTextColor, 0.2)
                }
            }
        }
    }

    Component.onCompleted: {
        if (!animated) {
            Kirigami.Units.veryLongDuration = 0
            Kirigami.Units.longDuration = 0
            Kirigami.Units.shortDuration = 0
            Kirigami.Units.veryShortDuration = 0
        }
    }

    function entryAt(path) {
        return tree.objectForPath(path.join("/"))
    }

    /// Returns the values of an entry that its page shows. These are copies, because a page may outlive its entry.
    function described(path) {
        const entry = entryAt(path)
        return {
            name: entry.name,
            title: entry.title,
            shortTitle: entry.shortTitle,
            icon: entry.icon,
            type: entry.type,
            location: path.map((name, index) => entryAt(path.slice(0, index + 1)).title).join(" › "),
            registration: entry.data()
        }
    }

    /// Shows the page of the entry at path in the column next to the given one.
    function openEntry(path, column) {
        if (path.join("/") === applicationsPath.join("/")) {
            openPage("ApplicationsPage.qml", path, column)
        } else {
            openPage(entryAt(path).count() > 0 ? "EntryListPage.qml" : "DetailsPage.qml", path, column)
        }
    }

    function openDetails(path, column) {
        openPage("DetailsPage.qml", path, column)
    }

    function openPage(page, path, column) {
        pageStack.pop(pageStack.get(column))
        pageStack.push(Qt.resolvedUrl(page), {path: path, entry: described(path)})
    }

    function openApplications() {
        openEntry(applicationsPath, 0)
    }

    /// Shows the application of a desktop file.
    function openApplication(filePath, column) {
        pageStack.pop(pageStack.get(column))
        pageStack.push(Qt.resolvedUrl("ApplicationPage.qml"), {path: applicationsPath, filePath: filePath})
    }

    /// Closes the page in a column and those behind it.
    function closeFrom(column) {
        pageStack.pop(pageStack.get(column - 1))
    }

    function serviceTitle(service) {
        return {
            sandboxing: qsTrId("settings-la-sandboxing"),
            autostart: qsTrId("settings-la-autostart"),
            notifications: qsTrId("settings-la-notifications")
        }[service]
    }

    function faultTitle(fault) {
        return {
            none: qsTrId("settings-bt-fault_none"),
            slow: qsTrId("settings-bt-fault_slow"),
            fail: qsTrId("settings-bt-fault_fail"),
            nonsense: qsTrId("settings-bt-fault_nonsense")
        }[fault]
    }

    function openFavorites() {
        pageStack.pop(topPage)
        pageStack.push(Qt.resolvedUrl("FavoritesPage.qml"))
    }

    function openFavoriteChoice(column) {
        pageStack.pop(pageStack.get(column))
        pageStack.push(Qt.resolvedUrl("FavoriteChoicePage.qml"))
    }

    function setSelectedOnly(selectedOnly) {
        pageStack.get(1).selectedOnly = selectedOnly
    }

    function setFavoritesEditing(editing) {
        pageStack.get(1).editing = editing
    }

    /// Returns the titles of the entries between the top page and the entry at path.
    function titlesAbove(path) {
        const above = path.slice(topPath.length, -1).map((name, index) => entryAt(path.slice(0, topPath.length + index + 1)))
        return above.map(entry => entry ? entry.title : "").join(" › ")
    }

    /// Shows the entry at path with the pages above it, as if the user had opened them. Categories have no page of
    /// their own there.
    function showEntry(path, details) {
        pageStack.pop(topPage)
        topPage.flickable.positionViewAtBeginning()
        const first = Math.min(path.length, topPath.length + topDepth)
        for (let length = first; length > topPath.length && length <= path.length; ++length) {
            openEntry(path.slice(0, length), pageStack.depth - 1)
        }
        if (details) {
            openDetails(path, pageStack.depth - 1)
        }
    }

    function setDrawerOpen(open) {
        drawer.drawerOpen = open
    }

    /// Returns the width of the pages, at most two, that stay visible before the page in a column.
    function spaceBefore(column) {
        const columns = Math.min(column, 2, Math.floor(pageStack.width / pageStack.defaultColumnWidth) - 1)
        return columns * pageStack.defaultColumnWidth
    }

    function scrollTo(item) {
        pageFocus.scrollTo(item)
    }

    function scrollToBeginning() {
        topPage.flickable.positionViewAtBeginning()
        drawer.list.positionViewAtBeginning()
    }

    /// Scrolls the top page and the drawer to their ends. Returns false if an end was only estimated: it depends on the
    /// heights of rows that are created while the list scrolls.
    function scrollToEnd() {
        return [topPage.flickable, drawer.list].map(scrollListToEnd).every(reached => reached)
    }

    function scrollListToEnd(list) {
        const endIsKnown = list.itemAtIndex(list.count - 1) !== null
        list.contentY = list.originY + list.contentHeight + list.bottomMargin - list.height
        return endIsKnown
    }

    /// Returns the page in the column after the given one, null if it is not visible.
    function pageNextTo(column) {
        const isInSight = pageStack.wideMode && column + 1 < pageStack.depth
        return isInSight ? pageStack.get(column + 1) : null
    }

    /// Returns the path of that page as a string.
    function pathNextTo(column) {
        const page = pageNextTo(column)
        return page ? page.path.join("/") : ""
    }

    /// Returns the row of the entry whose page is in the column after that of the entries, -1 without one.
    function openRow(entries, column) {
        const path = pathNextTo(column)
        for (let row = 0; row < entries.count; ++row) {
            if (entries.objectAt(row).location().join("/") === path) {
                return row
            }
        }
        return -1
    }

    function closeVanishedPages() {
        for (let column = 1; column < pageStack.depth; ++column) {
            if (!entryAt(pageStack.get(column).path)) {
                closeFrom(column)
                return
            }
        }
    }

    PageFocus {
        id: pageFocus
        window: window
    }

    SettingsModel {
        id: tree
        depth: 1
        onModelReset: window.closeVanishedPages()
    }

    contextDrawer: DeveloperDrawer {
        id: drawer
        modal: window.width < pageStack.defaultColumnWidth * 2
        width: Math.min(Kirigami.Units.gridUnit * 19, window.width - Kirigami.Units.gridUnit * 2)
    }
}
