// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "declaration.h"

/// Adds an obstacle to each of @p declarations, in the order of loading, that later ones replace or would replace.
void findReplaced(QVector<Declaration> *declarations);
