// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "declaration.h"
#include "registry/filereport.h"

class Inspection;

/// All declarations in a directory, including those in files that are not loaded.
class Declarations
{
public:
    explicit Declarations(const Inspection &inspection);

    const QVector<Declaration> &all() const; ///< in the order of loading, files that are never loaded last
    QVector<Declaration> ofNode(const QString &node) const;
    /// Returns the names of registration files that may declare anything: unreadable files, directories, broken links,
    /// and with the reason those that are so broken that no path can be found.
    const QStringList &unknownFiles() const;
    QStringList paths() const; ///< of all declarations, as spelled

private:
    void addFile(const FileReport &report, const QVector<Obstacle> &obstacles);
    void addEntries(const FileReport &report, const QVector<Obstacle> &obstacles);
    void addPathsOfText(const FileReport &report, const QVector<Obstacle> &obstacles);
    void addUnlistedFiles();
    void addSubdirectory(const QString &name);
    QVector<Obstacle> groupObstacles(const RegistrationFile &file) const;
    QVector<Obstacle> entryObstacles(const QJsonObject &entry) const;
    QVector<Obstacle> pathObstacles(const QString &path) const;

    const Inspection &m_inspection;
    QVector<Declaration> m_all;
    QStringList m_unknownFiles;
};
