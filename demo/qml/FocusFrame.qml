// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// A frame around the control that has the focus of the keyboard.
Rectangle {
    property Item control

    anchors.fill: parent
    visible: control.activeFocus && applicationWindow().keyboardUsed
    color: "transparent"
    radius: Kirigami.Units.largeSpacing
    border.width: 2
    border.color: Kirigami.Theme.focusColor
}
