// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami

Controls.Control {
    id: row

    required property int index
    required property string fileName
    required property bool installed
    required property int entryCount
    required property bool masked
    required property string requiredGroup
    required property string disabledGroup

    leftPadding: Kirigami.Units.largeSpacing
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.smallSpacing
    bottomPadding: Kirigami.Units.smallSpacing

    function status() {
        if (!installed) {
            return qsTrId("settings-la-not_installed")
        }
        if (entryCount > 0) {
            return qsTrId("settings-la-entries", entryCount)
        }
        if (masked) {
            return qsTrId("settings-la-all_masked")
        }
        if (requiredGroup !== "") {
            return qsTrId("settings-la-requires_group").arg(requiredGroup)
        }
        if (disabledGroup !== "") {
            return qsTrId("settings-la-disabled_for_group").arg(disabledGroup)
        }
        return qsTrId("settings-la-loading")
    }

    // A tap removes the binding of a button's state, so it is set again.
    contentItem: RowLayout {
        spacing: Kirigami.Units.smallSpacing

        EntryLabel {
            Layout.fillWidth: true
            opacity: row.installed ? 1 : 0.6
            inButton: true
            title: row.fileName
            subtitle: row.status()
        }
        Controls.ToolButton {
            visible: row.installed
            icon.name: row.masked ? "view-hidden" : "view-visible"
            text: row.masked ? qsTrId("settings-bt-unmask") : qsTrId("settings-bt-hide")
            display: Controls.AbstractButton.IconOnly
            Accessible.name: text
            Accessible.description: row.fileName
            checkable: true
            checked: row.masked
            onToggled: {
                registrationFiles.setMasked(row.index, checked)
                checked = Qt.binding(() => row.masked)
            }
        }
        Toggle {
            checked: row.installed
            Accessible.name: row.fileName
            Accessible.description: row.status()
            onToggled: {
                registrationFiles.setInstalled(row.index, checked)
                checked = Qt.binding(() => row.installed)
            }
        }
    }
}
