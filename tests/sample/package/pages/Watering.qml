// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15

Text {
    text: "Watering"
    textFormat: Text.PlainText
}
