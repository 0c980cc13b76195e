// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QVector>

/// A reason why a declared entry is not in the tree.
struct Obstacle {
    /// In the order in which the library checks them.
    enum Kind {
        FileName, ///< the library never loads a file with this name
        NotJson,
        NotAnObject,
        LacksGroup,
        HasGroup,
        Pathless,
        Masked,
        RootPath, ///< the path contains no name, and the root is never shown
        Replaced,
    };
    Kind kind;
    QString detail; ///< the place of the error, the group, the masked path, or the declarations that replace it
};

/// An element of the "entries" of a file.
struct Declaration {
    /// Returns the path of the declared node in its normal form: names joined by "/".
    QString node() const;
    QString place() const; ///< "sound.json, entry 2"

    QString file;
    int index; ///< among the file's entries; in a broken file, among the paths that can be found
    QString path; ///< as spelled in the file
    QVector<Obstacle> obstacles; ///< all known ones; none when the entry is in the tree
};
