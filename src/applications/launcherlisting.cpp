// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/launcherlisting.h"

#include <launcherfolderitem.h>
#include <launcheritem.h>

#include <utility>

QVector<LauncherItem *> LauncherListing::list(LauncherFolderItem *launcher)
{
    QSet<QObject *> old = std::exchange(m_followed, {});
    QVector<LauncherItem *> items;
    if (launcher) {
        add(launcher, &old, &items);
    }
    for (QObject *folder : qAsConst(old)) {
        disconnect(folder, nullptr, this, nullptr);
    }
    return items;
}

void LauncherListing::add(LauncherFolderItem *folder, QSet<QObject *> *old, QVector<LauncherItem *> *items)
{
    if (!old->remove(folder)) {
        follow(folder);
    }
    m_followed.insert(folder);
    for (int row = 0; row < folder->rowCount(); ++row) {
        QObject *object = folder->get(row);
        if (auto *item = qobject_cast<LauncherItem *>(object)) {
            items->append(item);
        } else if (auto *subfolder = qobject_cast<LauncherFolderItem *>(object)) {
            add(subfolder, old, items);
        }
    }
}

void LauncherListing::follow(LauncherFolderItem *folder)
{
    connect(folder, &QAbstractItemModel::rowsInserted, this, &LauncherListing::changed);
    connect(folder, &QAbstractItemModel::rowsMoved, this, &LauncherListing::changed);
    connect(folder, &QAbstractItemModel::rowsRemoved, this, &LauncherListing::changed);
    connect(folder, &QAbstractItemModel::modelReset, this, &LauncherListing::reset);
    connect(folder, &QObject::destroyed, this, [this](QObject *gone) { m_followed.remove(gone); });
}

#include "moc_launcherlisting.cpp"
