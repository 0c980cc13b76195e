// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

struct DirectoryListing {
    QStringList files;
    QString shortage; ///< why descriptors or memory were short: there may be files that are not listed
};

/**
 * Lists the files of the directory at @p path as QDir does with QDir::Files: without hidden ones, by name without regard
 * to case, and nothing when it cannot be read. QDir does not report why.
 */
DirectoryListing listFiles(const QString &path);
