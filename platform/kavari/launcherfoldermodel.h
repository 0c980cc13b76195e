// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef LAUNCHERFOLDERMODEL_H
#define LAUNCHERFOLDERMODEL_H

#include "launcherfolderitem.h"

#include <memory>

class LauncherFolderModelPrivate;

/**
 * The installed applications: first what configFile() names, in its order and its folders, then all others by title.
 *
 * Follows the desktop files in the standard application directories, row by row, with the short delay in which a
 * package is installed. For the GUI thread only.
 */
class Q_DECL_EXPORT LauncherFolderModel : public LauncherFolderItem
{
    Q_OBJECT

public:
    explicit LauncherFolderModel(QObject *parent = nullptr);
    ~LauncherFolderModel() override;

    /// The menu file, in the user's configuration directory. Need not exist.
    static QString configFile();

public Q_SLOTS:
    /// Reads configFile() again, which is not followed. Resets this model and makes new folders if it has changed.
    void load();

private:
    const std::unique_ptr<LauncherFolderModelPrivate> d;
};

#endif
