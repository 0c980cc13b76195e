// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "regularfile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace
{
FileContent failed(const QString &reason)
{
    return {{}, reason};
}

FileContent readAll(int descriptor, qint64 limit)
{
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle)) {
        return failed(file.errorString());
    }
    // One more than is allowed: a file can grow after any look at its size.
    const QByteArray bytes = file.read(limit + 1);
    if (file.error() != QFile::NoError) {
        return failed(file.errorString());
    }
    if (bytes.size() > limit) {
        return failed(QStringLiteral("larger than %1 bytes").arg(limit));
    }
    return {bytes, {}};
}
}

FileContent readRegularFile(const QString &path, qint64 limit)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status;
    if (stat(name.constData(), &status) != 0) {
        return failed(qt_error_string(errno));
    }
    if (!S_ISREG(status.st_mode)) {
        return failed(QStringLiteral("not a regular file"));
    }
    // Should a pipe have taken the file's place since, neither this nor the reading waits for its writer.
    const int descriptor = open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return failed(qt_error_string(errno));
    }
    return readAll(descriptor, limit);
}
