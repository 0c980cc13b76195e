// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// An arrow to the next page.
Kirigami.Icon {
    implicitWidth: Kirigami.Units.iconSizes.small
    implicitHeight: implicitWidth
    source: Qt.application.layoutDirection === Qt.RightToLeft ? "go-next-symbolic-rtl" : "go-next-symbolic"
    isMask: true
}
