// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0
import com.velka.settings.toolkit 1.0

/// The installed applications, with switches for those that are allowed, start automatically and may notify.
Kirigami.ScrollablePage {
    id: page

    property string path
    property bool navigated: false
    property bool selectedOnly: false
    property bool restricted: false
    property int notificationChanges: 0
    readonly property int column: Kirigami.ColumnView.index
    readonly property string openFile: {
        const next = applicationWindow().pageNextTo(column)
        return next && next.filePath || ""
    }

    title: entry.title
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(column)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false

    actions.main: Kirigami.Action {
        icon.name: "view-filter"
        text: qsTrId("settings-bt-selected_only")
        checkable: true
        checked: page.selectedOnly
        onTriggered: page.selectedOnly = checked
    }

    footer: PlainMessage {
        visible: plainText !== ""
        type: Kirigami.MessageType.Warning
        plainText: ["sandboxing", "autostart", "notifications"].map(page.problemWith).filter(text => text).join(" ")
    }

    Component.onCompleted: {
        // The model refuses root, which the sandbox may run as.
        if (ApplicationsModel.uid === 0) {
            ApplicationsModel.uid = 100000
        }
        if (ApplicationsModel.filterMode < 0) {
            ApplicationsModel.filterMode = ApplicationSettingsModel.AllowedOnly
        }
        readRestricted()
        ApplicationsModel.getAllowedNotificationsConfig()
    }

    /// A read of this property waits for a service, so bindings must not read it.
    function readRestricted() {
        restricted = ApplicationsModel.filterModeEnabled
    }

    /// Returns what is wrong with a service, empty if there is nothing.
    function problemWith(name) {
        const service = PlatformServices[name]
        const texts = {}
        texts[PlatformService.Silent] = qsTrId("settings-la-service_silent")
        texts[PlatformService.Failing] = qsTrId("settings-la-service_failing")
        texts[PlatformService.Absent] = qsTrId("settings-la-service_absent")
        const text = texts[service.state]
        return text ? text.arg(applicationWindow().serviceTitle(name)).arg(service.errorString) : ""
    }

    function fetchAgain() {
        const mode = ApplicationsModel.filterMode
        ApplicationsModel.filterMode = -1
        ApplicationsModel.filterMode = mode
        ApplicationsModel.getAllowedNotificationsConfig()
    }

    Connections {
        target: ApplicationsModel

        function onFilterModeEnabledChanged() {
            page.readRestricted()
        }
        // Each mode has its own switch. The signal above is only emitted for the current one.
        function onFilterModeChanged() {
            page.readRestricted()
        }
        function onAllowedNotificationsChanged() {
            ++page.notificationChanges
        }
    }

    SettingsEntry {
        id: entry
        path: page.path
        favoritesKey: ""
    }

    Connections {
        target: serviceFaults

        function onFaultsChanged() {
            page.fetchAgain()
        }
    }

    UserApplicationsFilterModel {
        id: selected
        sourceModel: ApplicationsModel
        filter: ApplicationsModel.filterMode
    }

    PageList {
        id: list
        model: page.selectedOnly ? selected : ApplicationsModel
        cacheBuffer: 4000
        bottomMargin: Kirigami.Units.largeSpacing
        header: ApplicationsHeader {
            width: list.width
            restricted: page.restricted
            selectedCount: selected.count
        }
        delegate: ApplicationRow {
            x: Kirigami.Units.largeSpacing
            width: list.width - 2 * x
            first: index === 0
            last: index === list.count - 1
            current: filePath === page.openFile
            restricted: page.restricted
            notificationChanges: page.notificationChanges
            onClicked: applicationWindow().openApplication(filePath, page.column)
        }

        SecondaryLabel {
            anchors.centerIn: parent
            visible: list.count === 0
            text: qsTrId("settings-la-no_apps")
        }
    }
}
