// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonObject>
#include <QMap>
#include <QStringList>

class TreeItem;

/// The declared entries of a tree: path -> data, without the name of the file.
using EntrySnapshot = QMap<QString, QJsonObject>;

struct ChangedKey {
    QString key;
    QJsonValue before; ///< undefined when the key is new
    QJsonValue after; ///< undefined when the key was removed
};

struct ChangedEntry {
    QString path;
    QVector<ChangedKey> keys;
};

/// The difference between the entries of two trees. Each list is sorted by path.
struct EntryDifference {
    bool isEmpty() const;

    QStringList added;
    QStringList removed;
    QVector<ChangedEntry> changed;
};

/// Returns the entries below @p root, and if @p withTitles their titles as they are shown.
EntrySnapshot snapshotOf(TreeItem *root, bool withTitles = false);
EntryDifference differenceBetween(const EntrySnapshot &before, const EntrySnapshot &after);
