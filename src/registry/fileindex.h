// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QVector>

class NodeObserver;
class TreeItem;

/**
 * Finds the nodes that unloading a file may remove, without walking the tree: the nodes that each file declared, and
 * undeclared leaves. The tree's nodes keep it up to date; the root, which is never removed, is not in it.
 */
class VELKASETTINGS_PRIVATE_EXPORT FileIndex
{
public:
    /// Notifies @p observer of what is added and removed from now on.
    void addObserver(NodeObserver *observer);
    void removeObserver(NodeObserver *observer);

    void add(TreeItem *item);
    void remove(TreeItem *item);

    /// Called before a node of @p file gets other data.
    void replace(const QString &file);
    /// Returns the files of replaced data since the last call.
    QSet<QString> takeReplaced();

    QStringList files() const; ///< those that declared nodes, in any order
    bool contains(const QString &file) const; ///< it declared nodes that are in the tree
    QVector<TreeItem *> declaredBy(const QString &file) const;
    /// Returns the nodes of @p files and the undeclared leaves. Guarded, because removing one may remove others.
    QVector<QPointer<TreeItem>> removableWith(const QSet<QString> &files) const;

private:
    QHash<QString, QVector<TreeItem *>> m_declared; ///< in any order; each node knows its position
    QSet<TreeItem *> m_undeclaredLeaves;
    QSet<QString> m_replaced;
    QVector<NodeObserver *> m_observers;
};
