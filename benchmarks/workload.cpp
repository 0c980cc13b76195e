// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "workload.h"

#include "common/constants.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
QString pageName(int file, int index)
{
    return QStringLiteral("package%1_page%2").arg(file, 5, 10, QLatin1Char('0')).arg(index);
}

QString pagePath(int section, int file, int index)
{
    return QStringLiteral("system_settings/section%1/%2").arg(section).arg(pageName(file, index));
}

QJsonObject makeEntry(int section, int file, int index)
{
    const QString page = pageName(file, index);
    return {
        {QStringLiteral("path"), pagePath(section, file, index)},
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

QByteArray makeFile(int section, int file)
{
    QJsonArray entries;
    for (int index = 0; index < Workload::EntriesPerFile; ++index) {
        entries.append(makeEntry(section, file, index));
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

Workload::Workload(int fileCount, int sectionCount)
    : m_fileCount(fileCount)
    , m_sectionCount(sectionCount)
{
    if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
        qFatal("This program writes into system directories: run it through scripts/sandbox");
    }
    writeFile(Constants::FavoritesBlacklistFile, "[]");
    QDir().rmdir(Constants::EntriesDirectory);
    QDir().mkpath(storage());
    for (int file = 0; file < fileCount; ++file) {
        writeFile(storage() + QLatin1Char('/') + fileName(file), makeFile(file % m_sectionCount, file));
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
            paths.append(pagePath(file % m_sectionCount, file, index));
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

void Workload::hide(int first, int count) const
{
    QDir().mkpath(hidden());
    for (int file = first; file < first + count; ++file) {
        rename(Constants::EntriesDirectory + QLatin1Char('/') + fileName(file),
               hidden() + QLatin1Char('/') + fileName(file));
    }
}

void Workload::show(int first, int count) const
{
    for (int file = first; file < first + count; ++file) {
        rename(hidden() + QLatin1Char('/') + fileName(file),
               Constants::EntriesDirectory + QLatin1Char('/') + fileName(file));
    }
}

QString Workload::hidden() const
{
    return Constants::EntriesDirectory + QStringLiteral("-hidden");
}

QString Workload::storage() const
{
    return Constants::EntriesDirectory + QLatin1Char('-') + QString::number(m_fileCount);
}
