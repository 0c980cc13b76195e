// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// The background of one row of a card. Only the first and the last row have round corners.
Item {
    id: share

    property bool first: true
    property bool last: true
    property color color: Kirigami.Theme.backgroundColor

    readonly property int radius: Kirigami.Units.largeSpacing

    clip: true

    Rectangle {
        anchors {
            fill: parent
            topMargin: share.first ? 0 : -share.radius
            bottomMargin: share.last ? 0 : -share.radius
        }
        radius: share.radius
        color: share.color
    }
}
