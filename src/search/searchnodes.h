// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/typenumbers.h"

#include <vector>

class TreeItem;

/// A node of the tree that a search has read, or one above such a node.
struct SearchNode {
    TreeItem *item = nullptr; ///< null for an unused position
    int parent = -1; ///< its position
    int children = 0; ///< how many nodes have this one as their parent
    quint32 locationHash = 0;
    quint32 titlePlace = 0; ///< in the titles of the file
    quint16 type = 0; ///< its number, once the node is read
    quint8 depth = 0; ///< 1 for the children of the root
    quint8 titleWords = 0;
    bool isRead = false; ///< the entry of the node is in the index
    bool isResult = false; ///< the entry is one that can be found
};

/// The nodes that a search has read, and those above them. Each node of the tree knows its position here, which is the
/// same as long as the node is here.
class SearchNodes
{
public:
    SearchNodes() = default;
    ~SearchNodes();
    SearchNodes(const SearchNodes &) = delete;
    SearchNodes &operator=(const SearchNodes &) = delete;

    int size() const; ///< positions are below it; some are unused
    int readCount() const; ///< the number of nodes whose entries are in the index
    const SearchNode &at(int position) const;

    /// Returns the position of @p item, -1 when it is not here.
    static int positionOf(const TreeItem *item);
    /// Adds @p item and the nodes above it as far as they are not here. The entry of @p item, which has @p type, is in the
    /// index now.
    SearchNode &insert(TreeItem *item, const QString &type);
    /// Removes the node at @p position, whose entry has left the index, unless there are nodes below it here.
    void remove(int position);

    /// Releases memory that is reserved for more nodes.
    void squeeze();

    const TypeNumbers &types() const;
    size_t memory() const; ///< in bytes

private:
    int add(TreeItem *item);

    std::vector<SearchNode> m_nodes;
    std::vector<int> m_unused;
    TypeNumbers m_types;
    int m_readCount = 0;
};
