// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// An entry's icon in one colour on a tinted tile. The icon theme draws icons of this size for one colour.
Rectangle {
    property alias name: icon.name

    implicitWidth: Math.round(icon.width * 1.7)
    implicitHeight: implicitWidth
    radius: Kirigami.Units.largeSpacing
    color: Kirigami.ColorUtils.tintWithAlpha(Kirigami.Theme.backgroundColor, Kirigami.Theme.highlightColor, 0.15)

    LocalIcon {
        id: icon
        anchors.centerIn: parent
        width: Kirigami.Units.iconSizes.smallMedium
        height: width
        isMask: true
        color: Kirigami.Theme.linkColor
    }
}
