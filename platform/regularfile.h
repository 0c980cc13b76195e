// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef REGULARFILE_H
#define REGULARFILE_H

#include <QByteArray>
#include <QString>

struct FileContent {
    QByteArray bytes;
    QString error; ///< empty when the file was read
};

/// Reads a file of no more than @p limit bytes. What is no regular file is not opened: it could block.
FileContent readRegularFile(const QString &path, qint64 limit);

#endif
