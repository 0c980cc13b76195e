// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QVector>

class TreeItem;

/// The nodes of a tree in the order of the models, and their output format.
namespace TreeListing
{
struct ListedItem {
    TreeItem *item;
    int depth; ///< 1 for the children of the root
};

/// Returns each node before its descendants, siblings by "order", then by name. Leaves out undeclared
/// nodes at a depth that only a mistake can reach, because a path can have as many nodes as letters.
QVector<ListedItem> itemsOf(TreeItem *root);
QString pathOf(TreeItem *item);
/// Returns the properties of the node that a page can read.
QJsonObject toJson(TreeItem *item);
}
