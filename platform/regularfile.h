// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>

struct FileContent {
    QByteArray bytes;
    QString error; ///< empty when the file was read
    bool isShortage = false; ///< the file can be read once there are descriptors or memory again
};

/// Returns whether @p error, a value of errno, means that descriptors or memory are short.
bool isShortage(int error);

/// Reads the file at @p path, which must be a regular one of no more than @p limit bytes. Never waits for a writer.
FileContent readRegularFile(const QString &path, qint64 limit);
