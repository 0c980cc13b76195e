// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "regularfile.h"

#include <QFile>
#include <QScopeGuard>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace
{
FileContent failed(const QString &reason)
{
    return {{}, reason, false};
}

FileContent failed(int error)
{
    return {{}, qt_error_string(error), isShortage(error)};
}

/// Reads up to @p size bytes, fewer when the file ends earlier.
FileContent readBytes(int descriptor, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    int length = 0;
    ssize_t count = 1;
    while (length < size && count > 0) {
        count = TEMP_FAILURE_RETRY(read(descriptor, bytes.data() + length, size_t(size - length)));
        length += int(count);
    }
    if (count < 0) {
        return failed(errno);
    }
    bytes.truncate(length);
    return {bytes, {}, false};
}
}

bool isShortage(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOMEM;
}

FileContent readRegularFile(const QString &path, qint64 limit)
{
    if (path.contains(QChar::Null)) {
        return failed(ENOENT); // the kernel would see the part before it
    }
    // Four system calls; QFile makes eight. Without O_NONBLOCK, a pipe would wait for its writer.
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return failed(errno);
    }
    const auto guard = qScopeGuard([descriptor] { close(descriptor); });
    struct stat status {
    };
    if (fstat(descriptor, &status) != 0) {
        return failed(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return failed(QStringLiteral("not a regular file"));
    }
    if (status.st_size > limit) {
        return failed(QStringLiteral("larger than %1 bytes").arg(limit));
    }
    return readBytes(descriptor, int(status.st_size));
}
