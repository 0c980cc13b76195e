// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "entriesplace.h"

#include "fileshape.h"
#include "printable.h"

#include <QDir>
#include <QFile>

namespace
{
const QString s_blacklist = QStringLiteral("favorites-blacklist.json");
const QString s_entries = QStringLiteral("entries");
const QString s_data = QStringLiteral("usr/share/velka-settings");
const QString s_vocabulary = QStringLiteral("vocabulary.json");
const QString s_translations = QStringLiteral("usr/share/translations");

QString joined(const QString &directory, const QString &name)
{
    return directory.endsWith(QLatin1Char('/')) ? directory + name : directory + QLatin1Char('/') + name;
}

bool isDirectory(const QString &path)
{
    return QFileInfo(path).isDir();
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Returns the files of @p directory that have "json" in their suffixes, in the order in which the library loads them.
QStringList jsonFilesIn(const QString &directory)
{
    QStringList paths;
    const QStringList names = QDir(directory).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        if (name.contains(QLatin1String(".json"), Qt::CaseInsensitive)) {
            paths.append(joined(directory, name));
        }
    }
    return paths;
}

QStringList subdirectoriesOf(const QString &directory)
{
    QStringList paths;
    const QStringList names = QDir(directory).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        paths.append(joined(directory, name));
    }
    return paths;
}

/// Returns the files of @p directory, which may contain other JSON files as well, that look like registration files.
/// Files whose kind is unclear count only if no file is of another kind.
QStringList shapedFilesIn(const QString &directory)
{
    QStringList shaped;
    QStringList shapedOrUnclear;
    bool hasOthers = false;
    const QStringList paths = jsonFilesIn(directory);
    for (const QString &path : paths) {
        const QString name = QFileInfo(path).fileName();
        if (name == s_blacklist || name == s_vocabulary) {
            continue;
        }
        const FileShape shape = shapeOf(contentOf(path));
        hasOthers = hasOthers || shape == FileShape::Other;
        if (shape == FileShape::Registration) {
            shaped.append(path);
        }
        if (shape != FileShape::Other) {
            shapedOrUnclear.append(path);
        }
    }
    return hasOthers ? shaped : shapedOrUnclear;
}

EntriesPlace placeOfFile(const QString &file)
{
    EntriesPlace place;
    place.files.append(file);
    return place;
}

EntriesPlace placeOfDirectory(const QString &directory)
{
    EntriesPlace place;
    const bool isRoot = isDirectory(joined(directory, s_data));
    const QString data = isRoot ? joined(directory, s_data) : directory;
    const QString blacklist = joined(data, s_blacklist);
    if (isRoot) {
        place.translations = joined(directory, s_translations);
    }
    if (isRoot || QFileInfo(blacklist).isFile()) {
        place.blacklist = blacklist;
    }
    place.vocabulary = joined(data, s_vocabulary);
    const QString entries = joined(data, s_entries);
    const bool hasEntries = isRoot || isDirectory(entries);
    const bool isDedicated = hasEntries || QDir(QDir(directory).absolutePath()).dirName() == s_entries;
    place.directory = hasEntries ? entries : directory;
    if (hasEntries && !isRoot) {
        place.files = shapedFilesIn(directory); // besides those in "entries"
    }
    place.files += isDedicated ? jsonFilesIn(place.directory) : shapedFilesIn(place.directory);
    if (isDedicated) {
        place.subdirectories = subdirectoriesOf(place.directory);
    }
    return place;
}

QString problemWith(const QString &argument)
{
    const QFileInfo file(argument);
    if (!file.exists() && !file.isSymLink()) {
        return QStringLiteral("there is no file or directory \"%1\"").arg(printable(argument));
    }
    if (file.isDir() && !file.isReadable()) {
        return QStringLiteral("\"%1\" cannot be read").arg(printable(argument));
    }
    return {};
}
}

std::optional<EntriesPlace> EntriesPlace::find(const QString &argument, QString *problem)
{
    *problem = problemWith(argument);
    if (!problem->isEmpty()) {
        return {};
    }
    EntriesPlace place = isDirectory(argument) ? placeOfDirectory(argument) : placeOfFile(argument);
    if (place.allFiles().isEmpty()) {
        *problem = QStringLiteral("there is no registration file in \"%1\": neither *.json with \"entries\", nor "
                                  "entries/*.json, nor %2/entries/*.json")
                       .arg(printable(argument), s_data);
        return {};
    }
    return place;
}

bool EntriesPlace::isFile() const
{
    return directory.isEmpty();
}

QStringList EntriesPlace::allFiles() const
{
    return QFileInfo(blacklist).isFile() ? files + QStringList(blacklist) : files;
}
