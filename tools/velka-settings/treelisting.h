// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonObject>
#include <QList>
#include <QStringList>

class TreeItem;

/// The nodes of a tree in the order of the models, and their output format.
namespace TreeListing
{
/// Returns each node before its descendants, siblings by "order", then by name.
QList<TreeItem *> itemsOf(TreeItem *root);
QString pathOf(TreeItem *item);
/// Returns the properties of the node that a page can read.
QJsonObject toJson(TreeItem *item);
}
