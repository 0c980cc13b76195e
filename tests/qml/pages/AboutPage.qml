// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import com.velka.settings.toolkit 1.0

Item {
    required property SettingsEntry entry
    readonly property string title: entry.title
}
