// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0

/// The switch between the two selections of applications, the one that enables the selection, and edits of all of it.
Column {
    id: header

    property bool restricted: false
    property int selectedCount: 0
    readonly property bool autostart: ApplicationsModel.filterMode === ApplicationSettingsModel.AutostartedOnly
    readonly property var modes: [
        {name: "allowed", mode: ApplicationSettingsModel.AllowedOnly, title: qsTrId("settings-bt-allowed_apps")},
        {
            name: "autostart",
            mode: ApplicationSettingsModel.AutostartedOnly,
            title: qsTrId("settings-bt-autostarted_apps")
        }
    ]

    leftPadding: Kirigami.Units.largeSpacing
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.largeSpacing
    bottomPadding: Kirigami.Units.gridUnit
    spacing: Kirigami.Units.largeSpacing

    function applyRules() {
        const rules = ["browser", "calendar", "camera", "maps"]
        // The autostart list itself contains whether it is enabled.
        ApplicationsModel.applyPolicyRules(autostart ? rules.concat("enabledMode") : rules)
    }

    RowLayout {
        width: header.width - header.leftPadding - header.rightPadding
        spacing: Kirigami.Units.smallSpacing

        Repeater {
            model: header.modes

            Controls.Button {
                objectName: "mode " + modelData.name
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                text: modelData.title
                Accessible.name: text
                checkable: true
                autoExclusive: true
                checked: ApplicationsModel.filterMode === modelData.mode
                onClicked: ApplicationsModel.filterMode = modelData.mode
            }
        }
    }

    CardRow {
        id: switchRow
        width: header.width - header.leftPadding - header.rightPadding
        title: header.autostart
            ? qsTrId("settings-la-autostarted_only")
            : qsTrId("settings-la-allowed_only")
        subtitle: qsTrId("settings-la-selected_apps").arg(header.selectedCount).arg(ApplicationsModel.count)
        focusPolicy: Qt.NoFocus // its switch has the focus
        Accessible.ignored: true

        contentItem: RowLayout {
            spacing: Kirigami.Units.largeSpacing

            EntryLabel {
                Layout.fillWidth: true
                inButton: true
                title: switchRow.title
                subtitle: switchRow.subtitle
            }
            Toggle {
                id: toggle
                objectName: "restricted"
                checked: header.restricted
                Accessible.name: switchRow.title
                Accessible.description: switchRow.subtitle
                onToggled: {
                    ApplicationsModel.filterModeEnabled = checked
                    checked = Qt.binding(() => header.restricted)
                }
            }
        }
    }

    Flow {
        width: header.width - header.leftPadding - header.rightPadding
        spacing: Kirigami.Units.smallSpacing

        Controls.Button {
            objectName: "select all"
            text: qsTrId("settings-bt-select_all")
            Accessible.name: text
            onClicked: ApplicationsModel.selectAllApps()
        }
        Controls.Button {
            objectName: "clear"
            text: qsTrId("settings-bt-clear")
            Accessible.name: text
            onClicked: ApplicationsModel.clearSelectedApps()
        }
        Controls.Button {
            objectName: "policy rules"
            text: qsTrId("settings-bt-policy_rules")
            Accessible.name: text
            onClicked: header.applyRules()
        }
    }
}
