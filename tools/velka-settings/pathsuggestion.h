// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// Returns the one of the @p declared paths that @p path may be meant to be: in another case, misspelt, or only its
/// last names. Empty when there is none.
QString suggestPath(const QString &path, const QStringList &declared);
