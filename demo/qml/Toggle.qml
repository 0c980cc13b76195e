// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import org.kde.kirigami 2.19 as Kirigami

Controls.Switch {
    id: toggle

    opacity: enabled ? 1 : 0.5

    background: FocusFrame {
        control: toggle
    }

    indicator: Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: toggle.leftPadding
        implicitWidth: Kirigami.Units.gridUnit * 2
        implicitHeight: Kirigami.Units.gridUnit
        radius: height / 2
        color: toggle.checked
            ? Kirigami.Theme.highlightColor
            : Kirigami.ColorUtils.linearInterpolation(Kirigami.Theme.backgroundColor, Kirigami.Theme.textColor, 0.25)

        Rectangle {
            readonly property int gap: 2

            anchors.verticalCenter: parent.verticalCenter
            x: toggle.checked !== toggle.mirrored ? parent.width - width - gap : gap
            width: height
            height: parent.height - 2 * gap
            radius: height / 2
            color: Kirigami.Theme.highlightedTextColor
        }
    }
}
