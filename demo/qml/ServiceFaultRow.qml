// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls
import QtQuick.Layouts 1.15
import org.kde.kirigami 2.19 as Kirigami

/// A choice of the fault that a service simulates.
RowLayout {
    id: row

    property string service
    readonly property var faults: ["none", "slow", "fail", "nonsense"]

    spacing: Kirigami.Units.smallSpacing

    PlainLabel {
        id: label
        Accessible.ignored: true // the name of the choice
        Layout.fillWidth: true
        Layout.preferredWidth: 1 // half of the row for each
        wrapMode: Text.Wrap
        text: applicationWindow().serviceTitle(row.service)
    }
    Controls.ComboBox {
        Layout.fillWidth: true
        Layout.preferredHeight: Math.round(Kirigami.Units.gridUnit * 1.5) // its own height is fixed
        Layout.preferredWidth: 1
        Accessible.name: label.text
        model: row.faults.map(fault => applicationWindow().faultTitle(fault))
        currentIndex: row.faults.indexOf(serviceFaults.faults[row.service])
        // A choice removes the binding, so it is set again.
        onActivated: {
            serviceFaults.setFault(row.service, row.faults[index])
            currentIndex = Qt.binding(() => row.faults.indexOf(serviceFaults.faults[row.service]))
        }
    }
}
