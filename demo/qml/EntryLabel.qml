// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

Item {
    property alias title: titleLabel.text
    property alias subtitle: subtitleLabel.text

    implicitWidth: Math.max(titleLabel.implicitWidth, subtitleLabel.implicitWidth)
    implicitHeight: column.height

    Column {
        id: column
        width: parent.width

        PlainLabel {
            id: titleLabel
            width: parent.width
            wrapMode: Text.Wrap
        }
        SecondaryLabel {
            id: subtitleLabel
            width: parent.width
            visible: text !== ""
            font: Kirigami.Theme.smallFont
        }
    }
}
