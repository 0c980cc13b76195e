// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings 1.0
import com.velka.settings.toolkit 1.0

/// The properties of one application, and its settings entries.
Kirigami.ScrollablePage {
    id: page

    property string path
    property string filePath
    property var application: ({})
    readonly property int column: Kirigami.ColumnView.index
    readonly property StableListModel entries: StableListModel {
        sourceModel: SettingsModel {
            path: [page.path, page.filePath.split("/").pop()]
            depth: 1
        }
    }

    title: application.name
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(column)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false

    actions.main: Kirigami.Action {
        icon.name: "view-hidden"
        text: qsTrId("settings-bt-mask")
        onTriggered: registrationFiles.setPathMasked(page.filePath, true)
    }

    Component.onCompleted: describe()

    /// Copies the shown values, because the model creates new objects with each reset.
    function describe() {
        const object = ApplicationsModel.objectForPath(filePath)
        if (!object) {
            applicationWindow().closeFrom(column)
            return
        }
        application = {
            name: object.name,
            iconId: object.iconId,
            iconMode: object.iconMode,
            fileName: object.fileName,
            fileId: object.fileId,
            sandboxed: object.sandboxed,
            isValid: object.isValid,
            section: object.section ? object.section.title : ""
        }
    }

    function shownPath() {
        return (application.fileName || "").replace(homePath, "~")
    }

    function yesOrNo(value) {
        return value ? qsTrId("settings-la-yes") : qsTrId("settings-la-no")
    }

    Connections {
        target: ApplicationsModel

        function onModelReset() {
            page.describe()
        }
    }

    PageList {
        id: list
        model: page.entries
        cacheBuffer: 4000
        openPath: applicationWindow().pathShownIn(page.column)
        section.property: "category"
        bottomMargin: Kirigami.Units.largeSpacing
        header: Column {
            width: list.width
            topPadding: Kirigami.Units.largeSpacing
            spacing: Kirigami.Units.gridUnit

            RowLayout {
                x: Kirigami.Units.gridUnit
                width: parent.width - 2 * x
                spacing: Kirigami.Units.largeSpacing

                LocalIcon {
                    implicitWidth: Kirigami.Units.iconSizes.large
                    implicitHeight: implicitWidth
                    name: page.application.iconId || ""
                    fallback: "application-x-executable"
                }
                Kirigami.Heading {
                    Layout.fillWidth: true
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    text: page.application.name
                }
            }
            DetailsCard {
                x: Kirigami.Units.largeSpacing
                width: parent.width - 2 * x
                heading: qsTrId("settings-he-application")
                rows: [
                    {label: qsTrId("settings-la-name"), value: page.application.name},
                    {label: qsTrId("settings-la-file_id"), value: page.application.fileId},
                    {label: qsTrId("settings-la-file"), value: page.shownPath()},
                    {label: qsTrId("settings-la-icon"), value: page.application.iconId},
                    {label: qsTrId("settings-la-icon_mode"), value: page.application.iconMode},
                    {label: qsTrId("settings-la-sandboxed"), value: page.yesOrNo(page.application.sandboxed)},
                    {label: qsTrId("settings-la-valid"), value: page.yesOrNo(page.application.isValid)},
                    {label: qsTrId("settings-la-section"), value: page.application.section}
                ].filter(row => row.value)
            }
        }
        delegate: EntryRow {
            width: ListView.view.width
            showsCategory: true
            column: page.column
        }
    }
}
