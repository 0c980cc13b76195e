// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>

struct FileContent {
    QByteArray bytes;
    QString error; ///< empty when the file was read
    bool isTemporary = false; ///< the error says nothing about the file: reading it later may succeed
};

/// Returns whether @p error, a value of errno, only says that descriptors or memory are short.
bool isTemporaryError(int error);

/// Reads the file at @p path, which must be a regular one of no more than @p limit bytes. Never waits for a writer.
FileContent readRegularFile(const QString &path, qint64 limit);
