// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// Writes what the machine still holds back for the file system of @p directory: only written pages can be dropped.
void writeBack(const QString &directory);

/**
 * Drops @p files from the page cache, and tells which share of their pages stayed there. That is what other processes
 * map, such as a library that the buses use, and everything that lies on no disk.
 */
double dropFromCache(const QStringList &files);
