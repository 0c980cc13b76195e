// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "declarations.h"

/// The answer whether a path is in the tree, with one reason if it is not.
struct Verdict {
    enum Kind {
        Present,
        KeptOut, ///< by the first obstacle of the decisive declaration
        InUnknownFile, ///< if it is declared, then in a file that cannot be read
        Undeclared,
    };
    Kind kind;
    QVector<Declaration> declarations; ///< all declarations of the path
    int decisive = -1; ///< the declaration that is in the tree, or the one with the latest first obstacle
};

Verdict verdictOn(const Declarations &declarations, const QString &node);
