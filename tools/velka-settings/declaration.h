// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QVector>

/// What keeps a declared entry out of the tree.
struct Obstacle {
    /// In the order in which the library meets them.
    enum Kind {
        FileName, ///< never loaded for its name
        NotJson,
        NotAnObject,
        LacksGroup,
        HasGroup,
        Pathless,
        Masked,
        RootPath, ///< the path holds no name: the root is never shown
        Replaced,
    };
    Kind kind;
    QString detail; ///< the error's place, the group, the value of the key, or the declarations that replace it
};

/// One element of the "entries" of one file.
struct Declaration {
    /// The node that it declares, however the path is spelled: names joined by "/".
    QString node() const;
    QString place() const; ///< "sound.json, entry 2"

    QString file;
    int index; ///< among the file's entries; among the paths that can be made out when the file is broken
    QString path; ///< as it is spelled there
    QVector<Obstacle> obstacles; ///< all that are known, none when the entry is in the tree
};
