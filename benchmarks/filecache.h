// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// Writes the dirty pages of the file system of @p directory: only clean pages can be dropped.
void writeBack(const QString &directory);

/**
 * Drops @p files from the page cache, and returns the share of their pages that stayed there. Pages stay if other
 * processes map them, such as those of a library that the buses use, and if the file is not on a disk.
 */
double dropFromCache(const QStringList &files);
