// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "modelreplica.h"
#include "models/favoritesmodel.h"
#include "signallog.h"

#include <QAbstractItemModelTester>

class TreeItem;

/// A favourites model with a model tester, a replica and a log of its signals. It lists sections unless its filter is
/// changed.
class WatchedFavorites
{
public:
    /// With an empty @p userModifiedKey the stored list is that of the system.
    explicit WatchedFavorites(const QString &userModifiedKey = userModifiedKeyOfTests());

    static QString keyOfTests(); ///< the model's default
    static QString userModifiedKeyOfTests();

    FavoritesModel *operator->();
    FavoritesModel &operator*();

    TreeItem *item(int row) const;
    QStringList names() const; ///< those of the rows' entries
    static QStringList wantedNames(); ///< those of the sections in the stored list, in its order
    QStringList takeSignals();
    /// Returns true if the signals have announced all changes of the rows, and the rows match the stored list and the
    /// tree.
    bool isConsistent() const;

private:
    FavoritesModel m_model;
    FlatProxy m_flat;
    QAbstractItemModelTester m_tester;
    ModelReplica m_replica;
    SignalLog m_log;
};

/// Declare sections by their paths, such as "a" and "a/b", or entries as JSON objects with commas between them.
void declareSections(const QStringList &paths);
void declareJson(const QByteArray &entries);

void storeFavorites(const QVariant &value); ///< in this process
QStringList storedFavorites();
void storeUserModified(bool modified);

void removeNode(const QStringList &path); ///< deletes the node from the registry's tree if it exists
