// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami

/// Opens when a program asks for a package.
Kirigami.ApplicationWindow {
    id: window

    visible: false
    title: qsTrId("store-he-store")
    width: 412
    height: 480
    pageStack.globalToolBar.style: Kirigami.ApplicationHeaderStyle.ToolBar

    pageStack.initialPage: Kirigami.ScrollablePage {
        title: window.title

        ListView {
            model: storeClient.packages
            spacing: Kirigami.Units.largeSpacing
            topMargin: Kirigami.Units.largeSpacing
            header: Controls.Label {
                width: ListView.view.width
                leftPadding: Kirigami.Units.gridUnit
                rightPadding: Kirigami.Units.gridUnit
                bottomPadding: Kirigami.Units.gridUnit
                wrapMode: Text.Wrap
                text: qsTrId("store-la-missing")
            }
            delegate: RowLayout {
                x: Kirigami.Units.gridUnit
                width: ListView.view.width - 2 * x
                spacing: Kirigami.Units.largeSpacing

                Kirigami.Icon {
                    implicitWidth: Kirigami.Units.iconSizes.medium
                    implicitHeight: implicitWidth
                    source: "package-x-generic"
                }
                Controls.Label {
                    Layout.fillWidth: true
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    text: modelData
                }
            }
        }
    }

    Connections {
        target: storeClient
        function onAsked() {
            window.show()
            window.raise()
            window.requestActivate()
        }
    }
}
