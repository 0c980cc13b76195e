// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings.toolkit 1.0

/// The page that an entry names. An entry without one, or whose page has errors, has its registration there.
Kirigami.ScrollablePage {
    id: page

    property string path
    property bool navigated: false
    readonly property SettingsEntry entry: SettingsEntry {
        path: page.path
        favoritesKey: ""
        onExistsChanged: {
            if (!exists && !page.navigated) {
                applicationWindow().closeFrom(page.column)
            }
        }
    }
    readonly property int column: Kirigami.ColumnView.index

    title: entry.title
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(column)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false
    leftPadding: Kirigami.Units.largeSpacing
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.largeSpacing
    bottomPadding: Kirigami.Units.largeSpacing

    actions.main: Kirigami.Action {
        icon.name: "view-hidden"
        text: qsTrId("settings-bt-mask")
        visible: page.entry.data.path !== undefined
        onTriggered: registrationFiles.setPathMasked(page.entry.data.path, true)
    }
    actions.left: Kirigami.Action {
        icon.name: "media-playback-start"
        text: qsTrId("settings-bt-run")
        visible: page.entry.type === "action"
        onTriggered: outcome.run()
    }

    footer: ActionOutcome {
        id: outcome
        entry: page.entry
    }

    function errorText(error) {
        return error.line > 0 ? error.file + ":" + error.line + ": " + error.text : error.text
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
            {label: qsTrId("settings-la-location"), value: applicationWindow().titles(entry.breadcrumb)}
        ].concat(rows(labels, entry.data, ["type", "params"]))
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
        }, entry.params, [])
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

    EntryPage {
        id: content
        objectName: "content"
        visible: status === EntryPage.Ready
        implicitHeight: visible ? item.implicitHeight : 0
        path: page.navigated && page.entry.params.source ? page.path : ""
    }

    Column {
        visible: !content.visible
        spacing: Kirigami.Units.gridUnit

        PlainMessage {
            width: parent.width
            visible: content.errors.length > 0
            // An invisible message without a width warns of a binding loop if its text has more than a line.
            plainText: visible
                       ? qsTrId("settings-la-page_errors").arg(content.errors.map(page.errorText).join(" "))
                       : ""
        }
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
                subtitle: page.entry.shortTitle || page.path.split("/").pop()
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
