// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "declarations.h"

/// Whether a path is in the tree, and the one reason if it is not.
struct Verdict {
    enum Kind {
        Present,
        KeptOut, ///< by what stands first in the way of the declaration
        InUnknownFile, ///< declared, if at all, in a file whose content is not known
        Undeclared,
    };
    Kind kind;
    QVector<Declaration> declarations; ///< all of the path
    int decisive = -1; ///< the declaration that is in the tree, or the one that comes closest to it
};

Verdict verdictOn(const Declarations &declarations, const QString &node);
