// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// Paths as texts: names joined by "/". Empty names are ignored.
namespace EntryPath
{
QStringList names(const QString &path);
QString joined(const QStringList &names);
/// Returns @p path without empty names.
QString normalized(const QString &path);
}
