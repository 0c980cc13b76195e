// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "filecache.h"

#include <QFile>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace
{
struct Pages {
    qint64 cached = 0;
    qint64 all = 0;

    void add(int file);
};

void Pages::add(int file)
{
    struct stat status {
    };
    if (fstat(file, &status) != 0 || status.st_size == 0) {
        return;
    }
    const auto size = std::size_t(status.st_size);
    const auto pageSize = std::size_t(sysconf(_SC_PAGESIZE));
    void *const address = mmap(nullptr, size, PROT_READ, MAP_SHARED, file, 0);
    if (address == MAP_FAILED) {
        qFatal("Can't map a file to look at its pages");
    }
    std::vector<unsigned char> flags((size + pageSize - 1) / pageSize);
    mincore(address, size, flags.data());
    munmap(address, size);
    all += qint64(flags.size());
    cached += std::count_if(flags.cbegin(), flags.cend(), [](unsigned char flag) { return (flag & 1) != 0; });
}

int openToRead(const QString &path)
{
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        qFatal("Can't open %s", qPrintable(path));
    }
    return file;
}
}

void writeBack(const QString &directory)
{
    const int file = openToRead(directory);
    syncfs(file);
    close(file);
}

double dropFromCache(const QStringList &files)
{
    Pages pages;
    for (const QString &path : files) {
        const int file = openToRead(path);
        posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        pages.add(file);
        close(file);
    }
    return pages.all > 0 ? double(pages.cached) / double(pages.all) : 0;
}
