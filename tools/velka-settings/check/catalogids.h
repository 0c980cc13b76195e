// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

namespace Check
{
/// Returns whether the texts of the catalog @p file (.qm) seem to be looked up by their source texts, not by ids.
bool lacksIds(const QString &file);
}
