// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import org.kde.kirigami 2.19 as Kirigami

/// The heading of a card. Its colour is nearer to that of the text than a link's, for more contrast.
PlainLabel {
    wrapMode: Text.Wrap
    font.bold: true
    color: Kirigami.ColorUtils.tintWithAlpha(Kirigami.Theme.linkColor, Kirigami.Theme.textColor, 0.3)
}
