// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import org.kde.kirigami 2.19 as Kirigami

/// A row of a card that can be tapped.
Controls.AbstractButton {
    id: row

    property alias first: background.first
    property alias last: background.last
    property bool current: false
    property real textX: 0 // the position of the row's text in its content

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

        Kirigami.Separator {
            visible: !row.last
            anchors {
                left: parent.left
                right: parent.right
                bottom: parent.bottom
                leftMargin: row.leftPadding + row.textX
            }
            opacity: 0.5
        }
    }
}
