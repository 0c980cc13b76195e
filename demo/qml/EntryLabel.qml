// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// A title above a subtitle.
Item {
    id: label

    property bool inButton: false // then the button has the texts as its name and its description
    property string title
    property string markup // of the title, empty without any
    property alias subtitle: subtitleLabel.text

    implicitWidth: Math.max(titleLabel.implicitWidth, subtitleLabel.implicitWidth)
    implicitHeight: column.height

    Column {
        id: column
        width: parent.width

        PlainLabel {
            id: titleLabel
            text: label.markup || label.title
            textFormat: label.markup ? Text.StyledText : Text.PlainText
            Accessible.ignored: label.inButton
            width: parent.width
            wrapMode: Text.Wrap
        }
        SecondaryLabel {
            id: subtitleLabel
            Accessible.ignored: label.inButton
            width: parent.width
            visible: text !== ""
            font: Kirigami.Theme.smallFont
        }
    }
}
