// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15

/// An entry that a search has found.
EntryButton {
    required property int index
    required property var object
    required property string location
    required property var titleRanges
    required property var breadcrumb

    objectName: "found " + location
    focusPolicy: ListView.isCurrentItem || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    iconName: object ? object.icon : ""
    title: object ? object.title : ""
    markup: highlighted(title, titleRanges)
    subtitle: breadcrumb.slice(applicationWindow().names(applicationWindow().topPath).length).join(" › ")
    onActiveFocusChanged: {
        if (activeFocus) {
            ListView.view.currentIndex = index
        }
    }

    function escaped(text) {
        return text.replace(/&/g, "&amp;").replace(/</g, "&lt;")
    }

    /// Returns markup with bold ranges. The text itself is untrusted.
    function highlighted(text, ranges) {
        let markup = ""
        let end = 0
        ranges.forEach(range => {
            const match = text.substr(range.start, range.length)
            markup += escaped(text.slice(end, range.start)) + "<b>" + escaped(match) + "</b>"
            end = range.start + range.length
        })
        return markup + escaped(text.slice(end))
    }
}
