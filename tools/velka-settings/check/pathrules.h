// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "document.h"

namespace Check
{
/// Whether @p path is more than its @p names, joined.
void checkSlashes(const QString &path, const QStringList &names, const Written &written, Findings *findings);
}
