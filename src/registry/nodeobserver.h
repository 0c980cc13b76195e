// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class TreeItem;

/// Is notified of the nodes of a tree that change, and of no others. It must not change the tree meanwhile.
class NodeObserver
{
public:
    virtual ~NodeObserver() = default;

    /// @p item entered the tree, perhaps only with other data than before.
    virtual void nodeEntered(TreeItem *item) = 0;
    /// @p item is about to leave the tree. Its parent may be null already.
    virtual void nodeLeaves(TreeItem *item) = 0;
};
