// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QSet>
#include <QString>

/// readFavoritesBlacklist() for the file at @p path. If it cannot be read because descriptors or memory are short,
/// @p shortage gets the error's text and nothing is logged.
QSet<QString> readBlacklistFile(const QString &path, QString *shortage = nullptr);
