// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami

/// All keys and values of one entry's registration.
Kirigami.ScrollablePage {
    id: page

    property var path
    property var entry

    title: entry.title
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(Kirigami.ColumnView.index)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false
    leftPadding: Kirigami.Units.largeSpacing
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.largeSpacing
    bottomPadding: Kirigami.Units.largeSpacing

    actions.main: Kirigami.Action {
        icon.name: "view-hidden"
        text: qsTrId("settings-bt-mask")
        visible: page.entry.registration.path !== undefined
        onTriggered: registrationFiles.setPathMasked(page.entry.registration.path, true)
    }

    function registrationRows() {
        const labels = {
            path: qsTrId("settings-la-path"),
            translation_id: qsTrId("settings-la-title_id"),
            title: qsTrId("settings-la-plain_title"),
            title_short: qsTrId("settings-la-short_title"),
            translation_id_short: qsTrId("settings-la-short_title_id"),
            icon: qsTrId("settings-la-icon"),
            controlIcon: qsTrId("settings-la-control_icon"),
            order: qsTrId("settings-la-order"),
            from_file: qsTrId("settings-la-file")
        }
        return [
            {label: qsTrId("settings-la-type"), value: entry.type},
            {label: qsTrId("settings-la-location"), value: entry.location}
        ].concat(rows(labels, entry.registration, ["type", "params"]))
    }

    function parameterRows() {
        return rows({
            source: qsTrId("settings-la-source"),
            target: qsTrId("settings-la-target"),
            type: qsTrId("settings-la-type"),
            simpleGrid: qsTrId("settings-la-simple_grid"),
            allow_favorite: qsTrId("settings-la-favorite"),
            "remote-service": qsTrId("settings-la-service"),
            "remote-path": qsTrId("settings-la-object"),
            "remote-interface": qsTrId("settings-la-interface"),
            "remote-method": qsTrId("settings-la-method"),
            "remote-arguments": qsTrId("settings-la-arguments"),
            "requires-package": qsTrId("settings-la-package")
        }, entry.registration.params || {}, [])
    }

    /// Returns the values with labels in the order of the labels, then all other values except the hidden ones.
    function rows(labels, values, hidden) {
        const known = Object.keys(labels).filter(key => values[key] !== undefined)
        const others = Object.keys(values).filter(key => !hidden.concat(known).includes(key))
        return known.concat(others).map(key => ({label: labels[key] || key, value: shown(values[key])}))
    }

    function shown(value) {
        switch (typeof value) {
        case "boolean":
            return value ? qsTrId("settings-la-yes") : qsTrId("settings-la-no")
        case "object":
            return JSON.stringify(value)
        }
        return String(value)
    }

    Column {
        spacing: Kirigami.Units.gridUnit

        RowLayout {
            width: parent.width
            spacing: Kirigami.Units.largeSpacing

            EntryIcon {
                Layout.leftMargin: Kirigami.Units.largeSpacing
                name: page.entry.icon
            }
            EntryLabel {
                Layout.fillWidth: true
                title: page.entry.title
                subtitle: page.entry.shortTitle || page.entry.name
            }
        }
        DetailsCard {
            width: parent.width
            heading: qsTrId("settings-he-registration")
            rows: page.registrationRows()
        }
        DetailsCard {
            width: parent.width
            heading: qsTrId("settings-he-parameters")
            rows: page.parameterRows()
        }
    }
}
