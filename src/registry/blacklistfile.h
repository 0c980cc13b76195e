// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QSet>
#include <QString>

/// readFavoritesBlacklist() for the file at @p path.
QSet<QString> readBlacklistFile(const QString &path);
