// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "declaration.h"

/// Adds to each of @p declarations, which stand in the order of loading, that later ones replace it or would do so.
void findReplaced(QVector<Declaration> *declarations);
