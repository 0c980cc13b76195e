// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef DCONFTOOL_H
#define DCONFTOOL_H

#include <QByteArray>
#include <QStringList>

// The dconf service as another program sees it.

QByteArray dconf(const QStringList &arguments);
QByteArray stored(const QString &key);
void store(const QString &key, const QString &value);

/// Whether any program on the session bus listens for changes of the key.
bool isWatched(const QString &key);

/// Returns when other programs see all that this process has written, and their writes come after it.
void waitForWrites();

/// Returns when every change that other programs made before has come to this process.
void settle();

#endif
