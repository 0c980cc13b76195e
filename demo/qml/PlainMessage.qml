// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import org.kde.kirigami 2.19 as Kirigami

/// A message that shows its text as it is. An InlineMessage would show markup in it.
Kirigami.InlineMessage {
    property string plainText

    text: "<span>" + plainText.replace(/&/g, "&amp;").replace(/</g, "&lt;") + "</span>"
}
