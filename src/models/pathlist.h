// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QStringList>

/// Edits of a stored list of paths, which may contain a path more than once.
namespace PathList
{
VELKASETTINGS_PRIVATE_EXPORT QStringList appended(const QStringList &paths, const QString &path);
VELKASETTINGS_PRIVATE_EXPORT QStringList removedAll(const QStringList &paths, const QString &path);
/// The first @p path at the place of the first @p target. Unchanged when one of them is missing.
QStringList moved(const QStringList &paths, const QString &path, const QString &target);
}
