// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/searchnodes.h"

#include "registry/treeitem.h"
#include "registry/treeitem_p.h"

#include <algorithm>

namespace
{
constexpr int None = -1;
}

SearchNodes::~SearchNodes()
{
    for (const SearchNode &node : m_nodes) {
        if (node.item) {
            TreeItemPrivate::of(node.item)->searchPosition = None;
        }
    }
}

int SearchNodes::size() const
{
    return int(m_nodes.size());
}

int SearchNodes::readCount() const
{
    return m_readCount;
}

const SearchNode &SearchNodes::at(int position) const
{
    return m_nodes[size_t(position)];
}

int SearchNodes::positionOf(const TreeItem *item)
{
    return TreeItemPrivate::of(item)->searchPosition;
}

SearchNode &SearchNodes::insert(TreeItem *item, const QString &type)
{
    std::vector<TreeItem *> missing; // the lowest one first
    for (TreeItem *node = item; node->parentItem() && positionOf(node) == None; node = node->parentItem()) {
        missing.push_back(node);
    }
    std::for_each(missing.crbegin(), missing.crend(), [this](TreeItem *node) { add(node); });
    SearchNode &node = m_nodes[size_t(positionOf(item))];
    node.isRead = true;
    node.type = m_types.acquire(type);
    ++m_readCount;
    return node;
}

void SearchNodes::remove(int position)
{
    if (m_nodes[size_t(position)].isRead) {
        m_nodes[size_t(position)].isRead = false;
        m_types.release(at(position).type);
        --m_readCount;
    }
    while (position != None && !at(position).isRead && at(position).children == 0) {
        SearchNode &node = m_nodes[size_t(position)];
        TreeItemPrivate::of(node.item)->searchPosition = None;
        m_unused.push_back(position);
        position = node.parent;
        node = {};
        if (position != None) {
            --m_nodes[size_t(position)].children;
        }
    }
}

void SearchNodes::squeeze()
{
    m_nodes.shrink_to_fit();
}

const TypeNumbers &SearchNodes::types() const
{
    return m_types;
}

size_t SearchNodes::memory() const
{
    return m_nodes.capacity() * sizeof(SearchNode) + m_unused.capacity() * sizeof(int);
}

/// Adds @p item, whose parent is here, or is the root.
int SearchNodes::add(TreeItem *item)
{
    const int parent = positionOf(item->parentItem());
    if (m_unused.empty()) {
        if (m_nodes.size() == m_nodes.capacity()) {
            m_nodes.reserve(m_nodes.size() + m_nodes.size() / 4 + 1);
        }
        m_unused.push_back(int(m_nodes.size()));
        m_nodes.emplace_back();
    }
    const int position = m_unused.back();
    m_unused.pop_back();
    SearchNode &node = m_nodes[size_t(position)];
    node.item = item;
    node.parent = parent;
    if (parent != None) {
        SearchNode &above = m_nodes[size_t(parent)];
        ++above.children;
        node.depth = quint8(std::min(above.depth + 1, 0xFF));
        node.locationHash = qHash(item->name(), above.locationHash);
    } else {
        node.depth = 1;
        node.locationHash = qHash(item->name(), 0);
    }
    TreeItemPrivate::of(item)->searchPosition = position;
    return position;
}
