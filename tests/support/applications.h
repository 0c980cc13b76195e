// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>

class LauncherFolderItem;
class LauncherFolderModel;
class LauncherItem;

/**
 * Private application directories, which replace the user's and the system's during the lifetime of this object. They
 * do not exist before a file is written into them.
 *
 * Paths are relative to the directory that contains "user", "first" and "second", in falling order of precedence.
 */
class Applications
{
public:
    Applications();

    QString path(const char *relative) const;
    QString menuFile() const;

    void write(const char *file, const QByteArray &content) const;
    /// Renames a new file over the old one.
    void replace(const char *file, const QByteArray &content) const;
    void remove(const char *path) const; ///< a directory with its content
    void rename(const char *from, const char *to) const;
    void link(const QString &target, const char *path) const;
    void writeMenu(const QByteArray &content) const;

private:
    void makeParent(const QString &path) const;

    const QTemporaryDir m_directory;
};

/// A launcher model that shares nothing with others, so that it shows what the files are, not what was noticed of them.
class UnsharedLauncher
{
public:
    UnsharedLauncher();
    ~UnsharedLauncher();

    const LauncherFolderModel &model() const;

private:
    std::unique_ptr<const LauncherFolderModel> m_model;
};

/// Returns a desktop file with @p lines after the required ones.
QByteArray application(const QByteArray &name, const QByteArray &lines = {});

/// Returns the titles of the rows, those of a folder in braces after its own: "A B Folder{C D}".
QString rows(const LauncherFolderItem &folder);
QStringList fileIds(const LauncherFolderItem &folder);
LauncherItem *itemAt(const LauncherFolderItem &folder, int row);
