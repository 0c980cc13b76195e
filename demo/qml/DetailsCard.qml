// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import org.kde.kirigami 2.19 as Kirigami

/// A card of labelled values. It is hidden without rows.
Column {
    id: card

    property alias heading: headingLabel.text
    property alias rows: repeater.model

    visible: repeater.count > 0
    spacing: Kirigami.Units.smallSpacing

    HeadingLabel {
        id: headingLabel
        x: Kirigami.Units.largeSpacing
        width: card.width - 2 * x
    }

    Controls.Control {
        width: card.width
        leftPadding: Kirigami.Units.largeSpacing
        rightPadding: Kirigami.Units.largeSpacing
        topPadding: Kirigami.Units.largeSpacing
        bottomPadding: Kirigami.Units.largeSpacing

        background: CardBackground {
            Kirigami.Theme.colorSet: Kirigami.Theme.View
            Kirigami.Theme.inherit: false
        }

        contentItem: Column {
            spacing: Kirigami.Units.largeSpacing

            Repeater {
                id: repeater

                Grid {
                    id: row

                    // Large texts have no space beside their label.
                    readonly property bool stacked: width < Kirigami.Units.gridUnit * 15
                    readonly property real labelWidth: Kirigami.Units.gridUnit * 7

                    width: parent.width
                    columns: stacked ? 1 : 2
                    columnSpacing: Kirigami.Units.largeSpacing

                    SecondaryLabel {
                        width: row.stacked ? row.width : row.labelWidth
                        text: modelData.label
                    }
                    PlainLabel {
                        width: row.stacked ? row.width : row.width - row.labelWidth - row.columnSpacing
                        text: modelData.value
                        wrapMode: Text.Wrap
                    }
                }
            }
        }
    }
}
