// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "declarations.h"

#include "brokenjson.h"
#include "inspection.h"
#include "replacements.h"

#include <QDir>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

Declarations::Declarations(const Inspection &inspection)
    : m_inspection(inspection)
{
    for (const FileReport &report : inspection.record().files()) {
        addFile(report, {});
    }
    addUnlistedFiles();
    findReplaced(&m_all);
}

const QVector<Declaration> &Declarations::all() const
{
    return m_all;
}

QVector<Declaration> Declarations::ofNode(const QString &node) const
{
    QVector<Declaration> found;
    std::copy_if(m_all.cbegin(), m_all.cend(), std::back_inserter(found),
                 [&node](const Declaration &declaration) { return declaration.node() == node; });
    return found;
}

QStringList Declarations::paths() const
{
    QStringList paths;
    for (const Declaration &declaration : m_all) {
        paths.append(declaration.path);
    }
    return paths;
}

const QStringList &Declarations::unknownFiles() const
{
    return m_unknownFiles;
}

void Declarations::addFile(const FileReport &report, const QVector<Obstacle> &obstacles)
{
    switch (report.status) {
    case FileStatus::Unreadable:
        m_unknownFiles.append(report.name);
        break;
    case FileStatus::NotJson:
        addPathsOfText(
            report,
            obstacles + QVector<Obstacle>{{Obstacle::NotJson, BrokenJson::errorOf(report.content, report.error)}});
        break;
    case FileStatus::NotAnObject:
        addPathsOfText(report, obstacles + QVector<Obstacle>{{Obstacle::NotAnObject, {}}});
        break;
    case FileStatus::Loaded:
    case FileStatus::LacksGroup:
    case FileStatus::HasGroup:
        addEntries(report, obstacles + groupObstacles(*report.file));
        break;
    }
}

void Declarations::addEntries(const FileReport &report, const QVector<Obstacle> &obstacles)
{
    int index = 0;
    for (const QJsonValue &element : report.file->entries) {
        const QJsonObject entry = element.toObject();
        const QString path = pathOfEntry(entry).value_or(QString());
        m_all.append({report.name, index++, path, obstacles + entryObstacles(entry)});
    }
}

void Declarations::addPathsOfText(const FileReport &report, const QVector<Obstacle> &obstacles)
{
    int index = 0;
    const QStringList paths = BrokenJson::paths(report.content);
    if (paths.isEmpty() && report.status == FileStatus::NotJson) {
        m_unknownFiles.append(
            QStringLiteral("%1 (%2)").arg(report.name, BrokenJson::errorOf(report.content, report.error)));
    }
    for (const QString &path : paths) {
        m_all.append({report.name, index++, path, obstacles + pathObstacles(path)});
    }
}

void Declarations::addUnlistedFiles()
{
    QSet<QString> listed;
    for (const FileReport &report : m_inspection.record().files()) {
        listed.insert(report.name);
    }
    const QDir directory(m_inspection.sources().entriesDirectory);
    const QFileInfoList present = directory.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System
                                                          | QDir::NoDotAndDotDot);
    for (const QFileInfo &info : present) {
        const QString name = info.fileName();
        if (listed.contains(name)) {
            continue;
        }
        if (info.isFile()) {
            addFile(readRegistrationFile(m_inspection.sources(), name), {{Obstacle::FileName, name}});
        } else if (isRegistrationFile(name)) {
            m_unknownFiles.append(name);
        } else if (info.isDir()) {
            addSubdirectory(name);
        }
    }
}

/// Adds the files that would be loaded if they were not in a subdirectory.
void Declarations::addSubdirectory(const QString &name)
{
    const QDir directory(m_inspection.sources().entriesDirectory + QLatin1Char('/') + name);
    const QStringList files = directory.entryList(QDir::Files);
    for (const QString &file : files) {
        if (isRegistrationFile(file)) {
            const QString path = name + QLatin1Char('/') + file;
            addFile(readRegistrationFile(m_inspection.sources(), path), {{Obstacle::FileName, path}});
        }
    }
}

QVector<Obstacle> Declarations::groupObstacles(const RegistrationFile &file) const
{
    QVector<Obstacle> obstacles;
    RegistrationFile remaining = file;
    FileStatus status = statusByGroups(m_inspection.sources(), remaining);
    if (status == FileStatus::LacksGroup) {
        obstacles.append({Obstacle::LacksGroup, file.requiredGroup});
        remaining.requiredGroup.clear();
        status = statusByGroups(m_inspection.sources(), remaining);
    }
    if (status == FileStatus::HasGroup) {
        obstacles.append({Obstacle::HasGroup, file.disabledGroup});
    }
    return obstacles;
}

QVector<Obstacle> Declarations::entryObstacles(const QJsonObject &entry) const
{
    const std::optional<QString> path = pathOfEntry(entry);
    if (!path) {
        return {{Obstacle::Pathless, {}}};
    }
    return pathObstacles(*path);
}

QVector<Obstacle> Declarations::pathObstacles(const QString &path) const
{
    QVector<Obstacle> obstacles;
    if (m_inspection.isMasked(path)) {
        obstacles.append({Obstacle::Masked, path});
    }
    if (splitPath(path).isEmpty()) {
        obstacles.append({Obstacle::RootPath, path});
    }
    return obstacles;
}
