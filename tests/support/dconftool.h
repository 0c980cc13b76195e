// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QStringList>

// The dconf service as another program sees it.

QByteArray dconf(const QStringList &arguments);
QByteArray stored(const QString &key);
void store(const QString &key, const QString &value);

/// Returns true if any program on the session bus watches the key.
bool isWatched(const QString &key);

/// Returns when all writes of this process are in the database, so that writes of other programs come after them.
void waitForWrites();

/// Returns when this process has received all changes that other programs have made.
void settle();
