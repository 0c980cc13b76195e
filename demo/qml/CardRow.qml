// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import org.kde.kirigami 2.19 as Kirigami

/// A row of a card that can be tapped.
Controls.AbstractButton {
    id: row

    property string title
    property string subtitle
    property alias first: background.first
    property alias last: background.last
    property bool current: false
    property Item textItem: null // the separator below the row begins where it does

    Accessible.focusable: true // also if the tabulator key reaches another row
    Accessible.name: title
    Accessible.description: subtitle
    leftPadding: Kirigami.Units.largeSpacing
    rightPadding: Kirigami.Units.largeSpacing
    topPadding: Kirigami.Units.largeSpacing
    bottomPadding: Kirigami.Units.largeSpacing

    background: CardBackground {
        id: background
        Kirigami.Theme.colorSet: Kirigami.Theme.View
        Kirigami.Theme.inherit: false
        color: row.current || row.down
            ? Kirigami.ColorUtils.tintWithAlpha(Kirigami.Theme.backgroundColor, Kirigami.Theme.highlightColor, 0.2)
            : Kirigami.Theme.backgroundColor

        readonly property real textInset: {
            if (!row.textItem) {
                return 0
            }
            return row.mirrored ? row.availableWidth - row.textItem.x - row.textItem.width : row.textItem.x
        }

        Kirigami.Separator {
            visible: !row.last
            Accessible.ignored: true
            anchors {
                left: parent.left
                right: parent.right
                bottom: parent.bottom
                leftMargin: row.leftPadding + background.textInset
            }
            opacity: 0.5
        }
        FocusFrame {
            control: row
        }
    }
}
