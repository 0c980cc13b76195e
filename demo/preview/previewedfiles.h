// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDir>
#include <QFileSystemWatcher>
#include <QMap>
#include <QObject>
#include <QStringList>

class FileWatcher;

/**
 * Registration files of a working copy, copied to the directory that the registry reads. A file that is saved is copied
 * and loaded again without the delay of the registry, and so is a file that appears in a followed directory.
 */
class PreviewedFiles : public QObject
{
    Q_OBJECT
    /// What is wrong with files, each with its name, the position and a message.
    Q_PROPERTY(QStringList problems READ problems NOTIFY problemsChanged)

public:
    /// Must be called before the registry is created. @p paths have different names.
    explicit PreviewedFiles(const QStringList &paths, const QStringList &directories = {});

    void follow();
    QStringList problems() const;

Q_SIGNALS:
    void problemsChanged();

private:
    bool copy(const QString &path);
    void reload(const QString &path);
    void followFile(const QString &path);
    void readDirectory(const QString &directory);
    void followOtherFiles(const QString &directory);
    void setProblem(const QString &name, const QString &problem);

    QStringList m_paths;
    const QStringList m_directories;
    const QDir m_entries;
    QMap<QString, QString> m_problems; ///< name of the file -> problem
    QFileSystemWatcher m_directoryWatcher;
    QObject m_watchers; ///< the parent of the watchers
};
