// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

/// The instances of inotify that this process has.
int inotifyInstances();
/// The watches of this process.
int inotifyWatches();

/// Takes all further instances of inotify while it lives. For tests that run with their own limit.
class NoInotifyInstances
{
public:
    NoInotifyInstances();
    ~NoInotifyInstances();
    NoInotifyInstances(const NoInotifyInstances &) = delete;
    NoInotifyInstances &operator=(const NoInotifyInstances &) = delete;

private:
    QVector<int> m_instances;
};

/// Takes all further watches while it lives. For tests that run with their own limit.
class NoInotifyWatches
{
public:
    NoInotifyWatches();
    ~NoInotifyWatches();
    NoInotifyWatches(const NoInotifyWatches &) = delete;
    NoInotifyWatches &operator=(const NoInotifyWatches &) = delete;

private:
    const QTemporaryDir m_files;
    const int m_inotify;
};

/// Records which files of a directory any process opens. The directory itself is "".
class OpenedFiles
{
public:
    explicit OpenedFiles(const QString &directory);
    ~OpenedFiles();
    OpenedFiles(const OpenedFiles &) = delete;
    OpenedFiles &operator=(const OpenedFiles &) = delete;

    /// Returns the names since the last call, each once.
    QStringList take() const;

private:
    const int m_inotify;
};
