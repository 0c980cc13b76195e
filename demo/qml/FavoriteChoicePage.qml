// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings.toolkit 1.0

/// All entries that can be favourites, by kinds.
Kirigami.ScrollablePage {
    id: page

    property int kind: 0
    readonly property string path: applicationWindow().topPath
    readonly property var kinds: [
        {title: qsTrId("settings-he-favorite_tiles"), filter: "grid_favorites"},
        {title: qsTrId("settings-bt-pages"), filter: "grid_favorites_page"},
        {title: qsTrId("settings-bt-simple_tiles"), filter: "grid_favorites_simple"},
        {title: qsTrId("settings-he-favorite_rows"), filter: "list_favorites"},
        {title: qsTrId("settings-he-favorite_actions"), filter: "action"}
    ]

    title: qsTrId("settings-he-choose_favorites")
    Kirigami.ColumnView.reservedSpace: applicationWindow().spaceBefore(Kirigami.ColumnView.index)
    Kirigami.Theme.colorSet: Kirigami.Theme.Window
    Kirigami.Theme.inherit: false

    Favorites {
        id: choices
        path: applicationWindow().names(page.path)
        showPotential: true
        filter: [page.kinds[page.kind].filter]
    }

    PageList {
        id: list
        model: StableListModel {
            sourceModel: choices
        }
        bottomMargin: Kirigami.Units.largeSpacing
        header: Flow {
            width: list.width
            padding: Kirigami.Units.largeSpacing
            spacing: Kirigami.Units.smallSpacing

            Repeater {
                model: page.kinds

                Controls.Button {
                    text: modelData.title
                    Accessible.name: text
                    checkable: true
                    autoExclusive: true
                    checked: page.kind === index
                    onClicked: page.kind = index
                }
            }
        }
        delegate: FavoriteChoiceRow {
            width: list.width
            favorites: choices
        }

        SecondaryLabel {
            anchors.centerIn: parent
            width: parent.width - Kirigami.Units.gridUnit * 4
            horizontalAlignment: Text.AlignHCenter
            visible: choices.count === 0
            text: qsTrId("settings-la-nothing_to_choose")
        }
    }
}
