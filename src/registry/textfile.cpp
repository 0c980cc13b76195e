// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/textfile.h"

#include <QFile>
#include <QScopeGuard>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

namespace
{
constexpr qint64 MaxSize = (1 << 30) - 1; // a byte array can have twice as much

/// Fewer bytes when the file ends earlier, nothing when it cannot be read.
std::optional<QByteArray> readBytes(int file, int size)
{
    QByteArray content(size, Qt::Uninitialized);
    int length = 0;
    ssize_t count = 1;
    while (length < size && count > 0) {
        count = TEMP_FAILURE_RETRY(read(file, content.data() + length, size_t(size - length)));
        length += int(count);
    }
    if (count < 0) {
        return {};
    }
    content.truncate(length);
    return content;
}
}

std::optional<QByteArray> readTextFile(const QString &path)
{
    if (path.contains(QChar::Null)) {
        return {}; // the kernel would see the part before it
    }
    // QFile asks the kernel twice as much. Whoever waits to write into a pipe goes on and finds no reader.
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0) {
        return {};
    }
    const auto guard = qScopeGuard([file] { close(file); });
    struct stat status {
    };
    // To read a pipe would wait for its writer.
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > MaxSize) {
        return {};
    }
    std::optional<QByteArray> content = readBytes(file, int(status.st_size));
    // As QIODevice::Text does, at a fraction of its cost
    if (content && std::memchr(content->constData(), '\r', size_t(content->size()))) {
        content->replace('\r', "");
    }
    return content;
}
