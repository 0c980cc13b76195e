// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami

/// A button with the icon and the title of an entry, which opens the entry's page.
CardRow {
    id: button

    property string iconName
    property string markup // of the title, empty without any

    textItem: label

    contentItem: RowLayout {
        spacing: Kirigami.Units.largeSpacing

        EntryIcon {
            name: button.iconName
        }
        EntryLabel {
            id: label
            inButton: true
            Layout.fillWidth: true
            title: button.title
            markup: button.markup
            subtitle: button.subtitle
        }
        NextIcon {
            color: Kirigami.Theme.textColor
            opacity: 0.5
        }
    }
}
