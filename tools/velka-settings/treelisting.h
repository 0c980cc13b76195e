// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonObject>
#include <QList>
#include <QStringList>

class TreeItem;

/// The nodes of a tree as the models list them, in forms to print.
namespace TreeListing
{
/// Each node before those below it, siblings by "order", then by name.
QList<TreeItem *> itemsOf(TreeItem *root);
QString pathOf(TreeItem *item);
/// What a page sees of the node.
QJsonObject toJson(TreeItem *item);
}
