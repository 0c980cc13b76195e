// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami

/// Installs, removes and masks registration files, and sets faults of the services. The window shows the changes.
Kirigami.OverlayDrawer {
    id: drawer

    readonly property alias list: list

    edge: Qt.application.layoutDirection === Qt.RightToLeft ? Qt.LeftEdge : Qt.RightEdge
    drawerOpen: false
    handleVisible: false
    leftPadding: 0
    rightPadding: 0
    topPadding: 0
    bottomPadding: 0

    contentItem: Controls.ScrollView {
        implicitWidth: drawer.width
        Controls.ScrollBar.horizontal.policy: Controls.ScrollBar.AlwaysOff

        ListView {
            id: list
            clip: true
            cacheBuffer: 4000 // the tabulator key follows the order in which rows are created
            model: registrationFiles
            header: drawerHeader
            footer: drawerFooter
            delegate: RegistrationFileRow {
                width: list.width
            }
        }
    }

    Component {
        id: drawerHeader

        ColumnLayout {
            width: list.width
            spacing: Kirigami.Units.smallSpacing

            Kirigami.Heading {
                Layout.fillWidth: true
                Layout.margins: Kirigami.Units.largeSpacing
                Layout.bottomMargin: 0
                level: 2
                wrapMode: Text.Wrap
                text: qsTrId("settings-he-files")
            }
            SecondaryLabel {
                Layout.fillWidth: true
                Layout.margins: Kirigami.Units.largeSpacing
                Layout.topMargin: 0
                text: qsTrId("settings-la-files_help")
            }
        }
    }

    Component {
        id: drawerFooter

        ColumnLayout {
            width: list.width
            spacing: 0

            Kirigami.Heading {
                Layout.fillWidth: true
                Layout.margins: Kirigami.Units.largeSpacing
                Layout.topMargin: Kirigami.Units.gridUnit
                level: 3
                wrapMode: Text.Wrap
                text: qsTrId("settings-he-masked_paths")
            }
            SecondaryLabel {
                Layout.fillWidth: true
                Layout.margins: Kirigami.Units.largeSpacing
                Layout.topMargin: 0
                visible: registrationFiles.maskedPaths.length === 0
                text: qsTrId("settings-la-nothing_masked")
            }
            Repeater {
                model: registrationFiles.maskedPaths

                RowLayout {
                    Layout.fillWidth: true
                    Layout.leftMargin: Kirigami.Units.largeSpacing
                    Layout.rightMargin: Kirigami.Units.largeSpacing

                    PlainLabel {
                        Layout.fillWidth: true
                        wrapMode: Text.Wrap
                        text: modelData
                    }
                    Controls.ToolButton {
                        icon.name: "view-visible"
                        text: qsTrId("settings-bt-unmask")
                        Accessible.name: text
                        Accessible.description: modelData
                        onClicked: registrationFiles.setPathMasked(modelData, false)
                    }
                }
            }
            Kirigami.Heading {
                Layout.fillWidth: true
                Layout.margins: Kirigami.Units.largeSpacing
                Layout.topMargin: Kirigami.Units.gridUnit
                Layout.bottomMargin: 0
                level: 3
                wrapMode: Text.Wrap
                text: qsTrId("settings-he-services")
            }
            SecondaryLabel {
                Layout.fillWidth: true
                Layout.margins: Kirigami.Units.largeSpacing
                Layout.topMargin: 0
                text: qsTrId("settings-la-services_help")
            }
            Repeater {
                model: serviceFaults.services

                ServiceFaultRow {
                    Layout.fillWidth: true
                    Layout.leftMargin: Kirigami.Units.largeSpacing
                    Layout.rightMargin: Kirigami.Units.largeSpacing
                    Layout.bottomMargin: Kirigami.Units.smallSpacing
                    service: modelData
                }
            }
            Item {
                implicitHeight: Kirigami.Units.gridUnit
            }
        }
    }
}
