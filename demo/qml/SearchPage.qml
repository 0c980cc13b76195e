// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings.search 1.0

/// The entries that a search finds. The parts of their titles that match are bold.
Kirigami.ScrollablePage {
    id: page

    readonly property string path: applicationWindow().topPath
    readonly property int column: Kirigami.ColumnView.index

    title: qsTrId("settings-bt-search")
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(column)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false

    header: Controls.TextField {
        objectName: "search"
        focus: true
        placeholderText: page.title
        Accessible.name: page.title
        onTextChanged: results.text = text
        Keys.onDownPressed: {
            list.currentIndex = 0
            if (list.currentItem) {
                list.currentItem.forceActiveFocus(Qt.TabFocusReason)
            }
        }
        Component.onCompleted: forceActiveFocus(Qt.TabFocusReason)
    }

    SearchModel {
        id: results
        path: applicationWindow().names(page.path)
    }

    PageList {
        id: list
        model: results
        topMargin: Kirigami.Units.largeSpacing
        bottomMargin: Kirigami.Units.largeSpacing
        delegate: SearchRow {
            x: Kirigami.Units.largeSpacing
            width: list.width - 2 * x
            first: index === 0
            last: index === list.count - 1
            onClicked: applicationWindow().showEntry(location.split("/"), false)
        }

        SecondaryLabel {
            anchors.centerIn: parent
            visible: list.count === 0 && results.text !== ""
            text: qsTrId("settings-la-nothing_found")
        }
    }
}
