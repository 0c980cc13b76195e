// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

/// The names of registration files by their content, such as sound-3f9a2c.json: running programs know files by their
/// names only, so a file with another content needs another name.
namespace ContentName
{
/// Returns the name of a file called @p name with @p content. It is @p name if that has the hash already.
QString of(const QString &name, const QByteArray &content);
/// Returns the name from which of() makes @p name.
QString withoutHash(const QString &name);
/// Returns whether @p name, of a file with @p content, is an earlier name of the file that is now named @p current.
bool isOlder(const QString &name, const QByteArray &content, const QString &current);
}
