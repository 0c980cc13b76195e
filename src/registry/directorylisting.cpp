// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/directorylisting.h"

#include <regularfile.h>

#include <QFile>
#include <QScopeGuard>
#include <QVector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace
{
DirectoryListing failed(int error)
{
    return {{}, isShortage(error) ? qt_error_string(error) : QString()};
}

/// Returns whether QDir::Files includes the entry: regular files, and links to anything but a directory.
bool isFile(DIR *directory, const dirent &entry)
{
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) {
        return entry.d_type == DT_REG;
    }
    struct stat own {
    };
    struct stat target {
    };
    const int descriptor = dirfd(directory);
    if (fstatat(descriptor, entry.d_name, &own, AT_SYMLINK_NOFOLLOW) != 0
        || fstatat(descriptor, entry.d_name, &target, 0) != 0) {
        return false;
    }
    return S_ISLNK(own.st_mode) ? !S_ISDIR(target.st_mode) : S_ISREG(own.st_mode);
}

QStringList sortedWithoutCase(const QStringList &names)
{
    using Name = std::pair<QString, QString>;
    QVector<Name> byLowerCase;
    byLowerCase.reserve(names.size());
    for (const QString &name : names) {
        byLowerCase.append({name.toLower(), name});
    }
    std::sort(byLowerCase.begin(), byLowerCase.end());
    QStringList sorted;
    sorted.reserve(names.size());
    std::transform(byLowerCase.cbegin(), byLowerCase.cend(), std::back_inserter(sorted),
                   [](const Name &name) { return name.second; });
    return sorted;
}
}

DirectoryListing listFiles(const QString &path)
{
    DIR *directory = opendir(QFile::encodeName(path).constData());
    if (!directory) {
        return failed(errno);
    }
    const auto guard = qScopeGuard([directory] { closedir(directory); });
    QStringList names;
    for (;;) {
        errno = 0;
        const dirent *entry = readdir(directory);
        if (!entry) {
            return isShortage(errno) ? failed(errno) : DirectoryListing{sortedWithoutCase(names), {}};
        }
        const QString name = QFile::decodeName(entry->d_name);
        // A name that is not UTF-8 would not lead back to the file.
        if (!name.startsWith(QLatin1Char('.')) && QFile::encodeName(name) == entry->d_name
            && isFile(directory, *entry)) {
            names.append(name);
        }
    }
}
