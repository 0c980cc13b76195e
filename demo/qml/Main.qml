// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0
import com.velka.settings.toolkit 1.0

Kirigami.ApplicationWindow {
    id: window

    property bool wide: false
    property bool animated: true
    property bool keyboardUsed: false

    /// The path and the depth of the model of the top page.
    property string topPath: "system_settings"
    property int topDepth: 2
    property alias pageTypes: navigation.pageTypes
    readonly property string applicationsPath: "applications"

    /// The name on the session bus under which other programs open addresses.
    property alias service: requests.service

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
        navigated: true
        path: window.topPath
        title: window.title
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

    /// Returns the names of a path, as the models take them.
    function names(path) {
        return path.split("/").filter(name => name)
    }

    /// Returns the titles of the steps, such as those above an entry.
    function titles(steps) {
        return steps.map(step => step.title).join(" › ")
    }

    /// Returns the titles of the entries between the top page and an entry.
    function titlesAbove(entry) {
        return titles(entry.breadcrumb.slice(names(topPath).length, -1))
    }

    /// Shows an entry in the column next to the given one: its page, or the details of an entry that has none.
    function openEntry(path, column) {
        shown.path = path
        if (!pageTypes.includes(shown.type)) {
            openDetails(path, column)
        } else {
            const page = pageStack.get(column)
            pageStack.pop(page)
            navigation.openFrom(page.path, path)
            showPages()
        }
    }

    function openDetails(path, column) {
        openPage("DetailsPage.qml", {path: path}, column)
    }

    /// Shows a page that is not one of the navigation.
    function openPage(file, properties, column) {
        const page = pageStack.get(column)
        pageStack.pop(page)
        navigation.openFrom(page.path, page.path)
        pageStack.push(Qt.resolvedUrl(file), properties)
    }

    /// Closes the pages that the navigation has closed, and those behind them, and shows the pages that it has opened.
    function showPages() {
        const paths = navigation.paths
        let count = 0
        for (let column = 0; column < pageStack.depth; ++column) {
            const page = pageStack.get(column)
            if (page.navigated && page.path !== paths[count]) {
                closeFrom(column)
            } else if (page.navigated) {
                ++count
            }
        }
        paths.slice(count).forEach(path => pageStack.push(fileOfPage(path), {path: path, navigated: true}))
    }

    function fileOfPage(path) {
        shown.path = path
        const list = shown.childCount > 0 ? "EntryListPage.qml" : "DetailsPage.qml"
        return Qt.resolvedUrl(path === applicationsPath ? "ApplicationsPage.qml" : list)
    }

    /// Shows the entry of these names with the pages above it, as if the user had opened them. Categories have no page of
    /// their own there. Of an entry that does not exist, the navigation only warns.
    function showEntry(names, details) {
        if (!navigation.open(names.join("/"))) {
            return
        }
        pageStack.pop(topPage)
        topPage.flickable.positionViewAtBeginning()
        navigation.open(topPath)
        const first = Math.min(names.length, window.names(topPath).length + topDepth)
        for (let length = first; length <= names.length; ++length) {
            navigation.open(names.slice(0, length).join("/"))
        }
        showPages()
        if (details) {
            openDetails(names.join("/"), pageStack.depth - 1)
        }
    }

    function openApplications() {
        openEntry(applicationsPath, 0)
    }

    /// Shows the application of a desktop file.
    function openApplication(filePath, column) {
        openPage("ApplicationPage.qml", {path: applicationsPath, filePath: filePath}, column)
    }

    /// Closes the page in a column and those behind it. A page that is closed already has no column.
    function closeFrom(column) {
        if (column > 0) {
            pageStack.pop(pageStack.get(column - 1))
        }
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
        openPage("FavoritesPage.qml", {}, 0)
    }

    function openSearch() {
        openPage("SearchPage.qml", {}, 0)
    }

    function openFavoriteChoice(column) {
        openPage("FavoriteChoicePage.qml", {}, column)
    }

    function setSelectedOnly(selectedOnly) {
        pageStack.get(1).selectedOnly = selectedOnly
    }

    function setFavoritesEditing(editing) {
        pageStack.get(1).editing = editing
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

    /// Returns the path of the entry in a column's page that is shown beside the page, or that an address names.
    function pathShownIn(column) {
        const next = pageNextTo(column)
        const isCurrent = column === pageStack.depth - 1
        return next ? next.path : isCurrent ? navigation.row : ""
    }

    PageFocus {
        id: pageFocus
        window: window
    }

    Shortcut {
        sequence: StandardKey.Find
        onActivated: window.openSearch()
    }

    SettingsModel {
        id: tree
        depth: 1
    }

    SettingsNavigation {
        id: navigation
        root: window.topPath
        onClosed: window.showPages()
    }

    SettingsEntry {
        id: shown
        favoritesKey: ""
    }

    AddressRequests {
        id: requests
        onOpenRequested: {
            window.showEntry(window.names(path), false)
            window.requestActivate()
        }
        onActivateRequested: window.requestActivate()
    }

    contextDrawer: DeveloperDrawer {
        id: drawer
        modal: window.width < pageStack.defaultColumnWidth * 2
        width: Math.min(Kirigami.Units.gridUnit * 19, window.width - Kirigami.Units.gridUnit * 2)
    }
}
