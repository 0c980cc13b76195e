// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

/// A place in the settings tree, as another program writes it: a URL such as "velka-settings:/system_settings/sound",
/// or a path.
struct Address {
    static constexpr int MaxLength = 64 * 1024; ///< of the URL

    QString path; ///< the names of the entry, joined by "/"
    QString error; ///< why the text is refused, such as "it names no entry"; empty if it is not

    /// Reads a URL.
    static Address ofUrl(const QString &url);
    /// Reads a URL or a path. A path whose first name has a colon must begin with a slash.
    static Address of(const QString &text);
    /// Returns the URL of @p path, percent-encoded.
    static QString urlOf(const QString &path);
};
