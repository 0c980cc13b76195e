// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QSet>
#include <QVector>

class LauncherFolderItem;
class LauncherItem;

/// Lists all applications of a launcher, those of a folder in its place, and emits signals for later changes.
class LauncherListing : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The entries below @p launcher, which may be null. From now on it and its folders are followed, and no others.
    QVector<LauncherItem *> list(LauncherFolderItem *launcher);

Q_SIGNALS:
    void changed(); ///< rows came, went or moved
    void reset();

private:
    void add(LauncherFolderItem *folder, QSet<QObject *> *old, QVector<LauncherItem *> *items);
    void follow(LauncherFolderItem *folder);

    QSet<QObject *> m_followed;
};
