// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import com.velka.settings.toolkit 1.0

/// The page of an entry: the QML file that "source" in its params names.
FocusScope {
    id: host

    /// As in EntryPageContent
    enum Status {
        Null,
        Loading,
        Ready,
        Error,
        Gone
    }

    property alias path: content.path
    readonly property alias entry: content.entry
    readonly property alias status: content.status
    readonly property alias item: content.item
    readonly property alias errors: content.errors

    implicitWidth: item ? item.implicitWidth : 0
    implicitHeight: item ? item.implicitHeight : 0

    EntryPageContent {
        id: content

        size: Qt.size(host.width, host.height)
    }
}
