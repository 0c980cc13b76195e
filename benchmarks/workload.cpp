// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "workload.h"

#include "plugin/constants.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
constexpr int SectionCount = 40;

QString pageName(int file, int index)
{
    return QStringLiteral("package%1_page%2").arg(file, 5, 10, QLatin1Char('0')).arg(index);
}

QString pagePath(int file, int index)
{
    return QStringLiteral("system_settings/section%1/%2").arg(file % SectionCount).arg(pageName(file, index));
}

QJsonObject makeEntry(int file, int index)
{
    const QString page = pageName(file, index);
    return {
        {QStringLiteral("path"), pagePath(file, index)},
        {QStringLiteral("type"), QStringLiteral("page")},
        {QStringLiteral("title"), QStringLiteral("Page %1 of package %2").arg(index).arg(file)},
        {QStringLiteral("translation_id"), QStringLiteral("settings-he-%1").arg(page)},
        {QStringLiteral("icon"), QStringLiteral("image://theme/icon-m-package%1").arg(file)},
        {QStringLiteral("order"), 10 * index},
        {QStringLiteral("params"),
         QJsonObject{
             {QStringLiteral("source"), QStringLiteral("/usr/share/velka-settings/pages/%1/main.qml").arg(page)}}},
    };
}

QByteArray makeFile(int file)
{
    QJsonArray entries;
    for (int index = 0; index < Workload::EntriesPerFile; ++index) {
        entries.append(makeEntry(file, index));
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("translation_catalog"), QStringLiteral("benchmark")},
                                     {QStringLiteral("entries"), entries}})
        .toJson();
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Can't write %s", qPrintable(path));
    }
}

void rename(const QString &from, const QString &to)
{
    if (!QDir().rename(from, to)) {
        qFatal("Can't rename %s to %s", qPrintable(from), qPrintable(to));
    }
}
}

Workload::Workload(int fileCount)
    : m_fileCount(fileCount)
{
    if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
        qFatal("This program writes into system directories: run it through scripts/sandbox");
    }
    writeFile(Constants::FavoritesBlacklistFile, "[]");
    QDir().rmdir(Constants::EntriesDirectory);
    QDir().mkpath(storage());
    for (int file = 0; file < fileCount; ++file) {
        writeFile(storage() + QLatin1Char('/') + fileName(file), makeFile(file));
    }
}

int Workload::fileCount() const
{
    return m_fileCount;
}

QStringList Workload::files() const
{
    QStringList files;
    for (int file = 0; file < m_fileCount; ++file) {
        files.append(Constants::EntriesDirectory + QLatin1Char('/') + fileName(file));
    }
    return files;
}

QString Workload::fileName(int index) const
{
    return QStringLiteral("package%1.json").arg(index, 5, 10, QLatin1Char('0'));
}

QStringList Workload::entryPaths() const
{
    QStringList paths;
    for (int file = 0; file < m_fileCount; ++file) {
        for (int index = 0; index < EntriesPerFile; ++index) {
            paths.append(pagePath(file, index));
        }
    }
    return paths;
}

void Workload::putInPlace() const
{
    rename(storage(), Constants::EntriesDirectory);
}

void Workload::takeAway() const
{
    rename(Constants::EntriesDirectory, storage());
}

QString Workload::storage() const
{
    return Constants::EntriesDirectory + QLatin1Char('-') + QString::number(m_fileCount);
}
