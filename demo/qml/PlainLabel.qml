// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtQuick.Controls 2.15 as Controls

/// A label that shows its text as it is. The texts of packages are untrusted: shown as markup, a title could load
/// images over the network.
Controls.Label {
    textFormat: Text.PlainText
    // An explicit alignment follows the direction of the layout, not that of an untranslated text.
    horizontalAlignment: Text.AlignLeft
}
