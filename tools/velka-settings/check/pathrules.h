// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "document.h"

namespace Check
{
/// Reports @p path if it has more slashes than those between its @p names.
void checkSlashes(const QString &path, const QStringList &names, const Written &written, Findings *findings);
}
