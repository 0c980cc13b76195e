// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings.toolkit 1.0

/// An entry with a star, which shows whether it is a favourite. A tap changes it.
Controls.AbstractButton {
    id: row

    required property int index
    required property var object
    required property bool favorite
    property Favorites favorites

    readonly property SettingsEntry entry: SettingsEntry {
        path: row.object ? row.object.location().join("/") : ""
        favoritesKey: ""
    }

    leftPadding: Kirigami.Units.gridUnit
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.smallSpacing
    bottomPadding: Kirigami.Units.smallSpacing

    objectName: "star " + entry.path
    focusPolicy: ListView.isCurrentItem || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    Accessible.focusable: true
    Accessible.name: label.title
    Accessible.description: label.subtitle
    checkable: true
    checked: favorite
    onActiveFocusChanged: {
        if (activeFocus) {
            ListView.view.currentIndex = index
        }
    }
    onToggled: {
        if (row.favorite) {
            row.favorites.removeFavorite(row.entry.path)
        } else {
            row.favorites.addFavorite(row.entry.path)
        }
        checked = Qt.binding(() => row.favorite) // which the tap has removed
    }

    background: FocusFrame {
        control: row
    }

    contentItem: RowLayout {
        spacing: Kirigami.Units.largeSpacing

        EntryIcon {
            name: row.object ? row.object.icon : ""
        }
        EntryLabel {
            id: label
            inButton: true
            Layout.fillWidth: true
            title: row.object ? row.object.title : ""
            subtitle: applicationWindow().titlesAbove(row.entry)
        }
        Kirigami.Icon {
            implicitWidth: Kirigami.Units.iconSizes.small
            implicitHeight: implicitWidth
            source: row.favorite ? "starred-symbolic" : "non-starred-symbolic"
            isMask: true
            color: Kirigami.Theme.textColor
        }
    }
}
