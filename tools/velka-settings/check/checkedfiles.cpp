// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checkedfiles.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Check
{
namespace
{
const QString s_blacklist = QStringLiteral("favorites-blacklist.json");
const QString s_entries = QStringLiteral("entries");

/// Returns a name of the file @p path that does not depend on how it was given. In a directory a link is a file of its
/// own, because the library loads it.
QString identityOf(const QString &path, bool isInDirectory)
{
    const QFileInfo file(path);
    const QString target = file.canonicalFilePath();
    return isInDirectory || target.isEmpty()
               ? file.absoluteDir().canonicalPath() + QLatin1Char('/') + file.fileName()
               : target;
}

/// Returns the group of files that are loaded together: those of one directory, and the blacklist next to it.
QString groupOf(const CheckedFile &file)
{
    if (file.isStandardInput) {
        return {};
    }
    const QDir directory = QFileInfo(file.path).absoluteDir();
    return directory.dirName() == s_entries ? QFileInfo(directory.path()).path() : directory.path();
}

void sortByName(FileGroup *files)
{
    const auto key = [](const CheckedFile &file) { return QFileInfo(file.path).fileName().toLower(); };
    std::stable_sort(files->begin(), files->end(),
                     [&key](const CheckedFile &a, const CheckedFile &b) { return key(a) < key(b); });
}
}

void CheckedFiles::add(const EntriesPlace &place)
{
    const QStringList paths = place.allFiles() + place.subdirectories;
    for (const QString &path : paths) {
        const QString identity = identityOf(path, !place.isFile());
        if (!m_known.contains(identity)) {
            m_known.insert(identity);
            m_files.append({path, place.translations, place.vocabulary});
        }
    }
}

void CheckedFiles::addStandardInput()
{
    m_files.append({QStringLiteral("<stdin>"), {}, {}, false, true});
}

void CheckedFiles::compareWith(const EntriesPlace &place)
{
    const QStringList paths = place.allFiles();
    for (const QString &path : paths) {
        m_installed.append({path, place.translations, place.vocabulary, true});
    }
}

QVector<FileGroup> CheckedFiles::groups() const
{
    QVector<FileGroup> groups;
    QHash<QString, int> numbers;
    for (const CheckedFile &file : m_files) {
        const QString group = m_installed.isEmpty() ? groupOf(file) : QString();
        if (!numbers.contains(group)) {
            numbers.insert(group, groups.size());
            groups.append(FileGroup());
        }
        groups[numbers.value(group)].append(file);
    }
    QSet<QString> names;
    for (const CheckedFile &file : m_files) {
        names.insert(QFileInfo(file.path).fileName());
    }
    for (const CheckedFile &file : m_installed) {
        if (!groups.isEmpty() && !names.contains(QFileInfo(file.path).fileName())) {
            groups.first().append(file);
        }
    }
    std::for_each(groups.begin(), groups.end(), [](FileGroup &group) { sortByName(&group); });
    return groups;
}

int CheckedFiles::count() const
{
    return m_files.size() + m_installed.size();
}

bool isBlacklistPath(const QString &path)
{
    const QFileInfo file(path);
    return file.fileName() == s_blacklist && file.absoluteDir().dirName() != s_entries;
}
}
