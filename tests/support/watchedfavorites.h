// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "modelreplica.h"
#include "models/favoritesmodel.h"
#include "signallog.h"

#include <QAbstractItemModelTester>

class TreeItem;

/// A favourites model under the eyes of all that watch a model. It lists sections, until its filter is changed.
class WatchedFavorites
{
public:
    /// With an empty @p userModifiedKey the stored list counts as the system's default.
    explicit WatchedFavorites(const QString &userModifiedKey = userModifiedKeyOfTests());

    static QString keyOfTests(); ///< the model's default
    static QString userModifiedKeyOfTests();

    FavoritesModel *operator->();
    FavoritesModel &operator*();

    TreeItem *item(int row) const;
    QStringList names() const; ///< of the rows' entries
    static QStringList wantedNames(); ///< of the sections that the stored list names, in its order
    QStringList takeSignals();
    /// Whether the signals told what happened to the rows, and the rows are what stored list and tree demand.
    bool isConsistent() const;

private:
    FavoritesModel m_model;
    FlatProxy m_flat;
    QAbstractItemModelTester m_tester;
    ModelReplica m_replica;
    SignalLog m_log;
};

/// Declares sections and other entries: "a" or "a/b" for a section, else JSON objects with commas between them.
void declareSections(const QStringList &paths);
void declareJson(const QByteArray &entries);

void storeFavorites(const QVariant &value); ///< in this process
QStringList storedFavorites();
void storeUserModified(bool modified);

void removeNode(const QStringList &path); ///< deletes it from the registry's tree, if it is there
