// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami

/// An entry with a star, which shows and changes whether it is a favourite.
Controls.Control {
    id: row

    required property var object
    required property bool favorite
    property Favorites favorites

    readonly property var path: object ? object.location() : []

    leftPadding: Kirigami.Units.gridUnit
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.smallSpacing
    bottomPadding: Kirigami.Units.smallSpacing

    contentItem: RowLayout {
        spacing: Kirigami.Units.largeSpacing

        EntryIcon {
            name: row.object ? row.object.icon : ""
        }
        EntryLabel {
            Layout.fillWidth: true
            title: row.object ? row.object.title : ""
            subtitle: applicationWindow().titlesAbove(row.path)
        }
        Controls.ToolButton {
            objectName: "star " + row.path.join("/")
            icon.name: row.favorite ? "starred-symbolic" : "non-starred-symbolic"
            text: row.favorite ? qsTrId("settings-bt-remove") : qsTrId("settings-bt-add")
            display: Controls.AbstractButton.IconOnly
            onClicked: {
                const path = row.path.join("/")
                if (row.favorite) {
                    row.favorites.removeFavorite(path)
                } else {
                    row.favorites.addFavorite(path)
                }
            }
        }
    }
}
