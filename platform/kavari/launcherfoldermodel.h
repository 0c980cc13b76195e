// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "launcherfolderitem.h"

#include <memory>

class LauncherFolderModelPrivate;

/**
 * The installed applications: first those that configFile() names, in its order and its folders, then all others by
 * title.
 *
 * Follows the desktop files in the standard application directories row by row, with a short delay in which a package
 * can be installed. All models of a process share what they read and watch. To be used in the GUI thread only.
 */
class Q_DECL_EXPORT LauncherFolderModel : public LauncherFolderItem
{
    Q_OBJECT

public:
    explicit LauncherFolderModel(QObject *parent = nullptr);
    ~LauncherFolderModel() override;

    /// Returns the path of the menu file in the user's configuration directory. The file need not exist.
    static QString configFile();

public Q_SLOTS:
    /// Reads configFile() again, which is not followed. If it has changed, resets this model and creates new folders.
    void load();

private:
    const std::unique_ptr<LauncherFolderModelPrivate> d;
};
