// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import org.kde.kirigami 2.19 as Kirigami

/// An icon that a package names: one of the icon theme or of a local file. Other URLs are refused, because they could
/// load an image over the network.
Kirigami.Icon {
    property string name

    source: isLocal(name) ? name : fallback

    function isLocal(name) {
        const isThemeIcon = /^[^:/]*$/.test(name) || /^image:\/\/theme\/[^:/]+$/.test(name)
        const isLocalFile = /^(file:\/\/)?\/(?!\/)/.test(name)
        return isThemeIcon || isLocalFile
    }
}
