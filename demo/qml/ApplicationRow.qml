// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0

/// An application with the switches for its notifications and for the selection that is being edited.
CardRow {
    id: row

    required property int index
    required property string name
    required property string iconId
    required property string filePath
    required property string fileId
    required property string applicationId
    required property var section
    required property bool allowed
    required property bool alwaysAllowed
    required property bool autostarted
    property bool restricted: false
    property int notificationChanges: 0

    readonly property var view: ListView.view
    readonly property bool editsAllowlist: ApplicationsModel.filterMode === ApplicationSettingsModel.AllowedOnly
    readonly property bool selected: editsAllowlist ? allowed || alwaysAllowed : autostarted
    // The service's list of all applications arrives without a change of the rows.
    readonly property bool notifies: notificationChanges >= 0
        && view.model.data(view.model.index(index, 0), ApplicationSettingsModel.NotificationsEnabledRole) === true

    readonly property int rowFocusPolicy: ListView.isCurrentItem || containsFocus ? Qt.StrongFocus : Qt.ClickFocus
    readonly property bool containsFocus: activeFocus || notifier.activeFocus || toggle.activeFocus

    objectName: "application " + fileId
    focusPolicy: rowFocusPolicy
    title: name
    subtitle: {
        if (editsAllowlist && alwaysAllowed) {
            return qsTrId("settings-la-always_allowed")
        }
        return section ? section.shortTitle || section.title : ""
    }
    onContainsFocusChanged: {
        if (containsFocus) {
            view.currentIndex = index
        }
    }
    textItem: label

    // A tap removes the binding of a button's state, so it is set again.
    contentItem: RowLayout {
        spacing: Kirigami.Units.largeSpacing

        LocalIcon {
            implicitWidth: Kirigami.Units.iconSizes.medium
            implicitHeight: implicitWidth
            name: row.iconId
            fallback: "application-x-executable"
        }
        EntryLabel {
            id: label
            inButton: true
            Layout.fillWidth: true
            title: row.title
            subtitle: row.subtitle
        }
        Controls.ToolButton {
            id: notifier
            objectName: "notify " + row.fileId
            focusPolicy: row.rowFocusPolicy
            Accessible.name: text
            Accessible.description: row.name
            visible: row.applicationId !== ""
            icon.name: row.notifies ? "notifications" : "notifications-disabled"
            text: qsTrId("settings-bt-notify")
            display: Controls.AbstractButton.IconOnly
            background: null // the icon shows the state
            checkable: true
            checked: row.notifies
            onToggled: {
                ApplicationsModel.setNotificationsEnabled(row.applicationId, checked)
                checked = Qt.binding(() => row.notifies)
            }
        }
        Toggle {
            id: toggle
            objectName: "selected " + row.fileId
            focusPolicy: row.rowFocusPolicy
            Accessible.name: row.editsAllowlist
                ? qsTrId("settings-bt-allowed_apps")
                : qsTrId("settings-bt-autostarted_apps")
            Accessible.description: row.name
            enabled: row.editsAllowlist ? row.restricted && !row.alwaysAllowed : true
            checked: row.selected
            onToggled: {
                ApplicationsModel.toggleSelectedApp(row.fileId)
                checked = Qt.binding(() => row.selected)
            }
        }
    }
}
