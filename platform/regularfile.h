// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>

struct FileContent {
    QByteArray bytes;
    QString error; ///< empty when the file was read
};

/// Reads the file at @p path, which must be a regular one of no more than @p limit bytes. Never waits for a writer.
FileContent readRegularFile(const QString &path, qint64 limit);
