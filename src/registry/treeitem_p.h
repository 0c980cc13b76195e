// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"
#include "registry/nodedata.h"
#include "registry/treeitem.h"

#include <QHash>
#include <QVector>

class FileIndex;
class NodeObserver;

/// The inside of a TreeItem, and what the registry alone does with a node.
class TreeItemPrivate
{
public:
    TreeItemPrivate(TreeItem *item, const QString &name, const NodeData &data);
    VELKASETTINGS_PRIVATE_EXPORT static TreeItemPrivate *of(const TreeItem *item);

    /// From now on updates @p index with changes of this subtree. The index must outlive the subtree.
    void setIndex(FileIndex *index);
    /// Returns the index of the tree that this node is in, null without one.
    VELKASETTINGS_PRIVATE_EXPORT FileIndex *index() const;
    /// Sets the data of the node at @p path, and creates the nodes that are missing on the way. Returns that node.
    TreeItem *insert(const QStringList &path, const NodeData &data);
    void setData(const NodeData &data);
    /// Releases the other entries of the node's file.
    void keepEntryAlone();

    void addChild(TreeItem *child);
    void removeChild(TreeItem *child);
    void deleteDescendants();
    QList<TreeItem *> sortedChildren(const TreeItem::Comparison &lessThan) const;
    void leaveIndex();

    TreeItem *const q;
    const QString name;
    NodeData data;
    QHash<QString, TreeItem *> childrenByName;
    mutable QVector<TreeItem *> children; ///< quicker to walk than the hash
    TreeItem *parent = nullptr;
    int position = -1; ///< among the parent's children
    int indexPosition = -1; ///< among the nodes of its file, kept by the index
    int searchPosition = -1; ///< among the nodes that a search has read, kept by that

private:
    TreeItem *takeChild(const QString &name);
    void enterIndex();
    void sortChildren() const;

    FileIndex *m_index = nullptr;
    mutable bool m_isSorted = true; ///< the children are in the order of TreeItem::orderLessThan()
};
