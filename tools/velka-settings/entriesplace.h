// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

#include <optional>

/// The registration files that an argument of the command line, FILE or DIR, stands for.
struct EntriesPlace {
    /// Returns nothing, and sets @p problem, when @p argument cannot be read or holds neither registration files nor
    /// a blacklist.
    static std::optional<EntriesPlace> find(const QString &argument, QString *problem);

    bool isFile() const; ///< whether the argument is a single file
    QStringList allFiles() const; ///< the registration files and the blacklist

    QString directory; ///< of the entries; empty for a single file
    QString blacklist; ///< the path of the favourites blacklist, which need not exist; empty: that of the system
    QString vocabulary; ///< the path of the host's vocabulary, which need not exist
    QString translations; ///< the directory of the catalogs; empty: that of the system
    QStringList files; ///< the registration files, in the order of loading, and those that are never loaded
    QStringList subdirectories; ///< of a directory of which everything is meant for the library
};
