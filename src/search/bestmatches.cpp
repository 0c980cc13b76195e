// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/bestmatches.h"

#include "registry/treeitem.h"
#include "search/searchindex.h"

#include <algorithm>

namespace
{
std::optional<QSet<int>> numbersOf(const QStringList &types, const SearchNodes &nodes)
{
    if (types.isEmpty()) {
        return {};
    }
    QSet<int> numbers;
    for (const QString &type : types) {
        numbers.insert(nodes.types().numberOf(type));
    }
    return numbers;
}

std::optional<QSet<int>> positionsOf(const std::optional<QStringList> &locations, TreeItem *root)
{
    if (!locations) {
        return {};
    }
    QSet<int> positions;
    for (const QString &location : *locations) {
        if (const TreeItem *item = root->lookup(location.split(QLatin1Char('/')))) {
            positions.insert(SearchNodes::positionOf(item));
        }
    }
    return positions;
}
}

NodeFilter::NodeFilter(const SearchQuery &query, const SearchIndex &index)
    : m_nodes(index.nodes())
    , m_top(index.root() ? index.root()->lookup(query.path) : nullptr)
    , m_isWholeTree(query.path.isEmpty())
    , m_types(numbersOf(query.types, index.nodes()))
    , m_within(positionsOf(query.within, index.root()))
{
}

bool NodeFilter::accepts(int position) const
{
    const SearchNode &node = m_nodes.at(position);
    return node.isResult && (!m_types || m_types->contains(node.type))
           && (!m_within || m_within->contains(position)) && (m_isWholeTree || isBelowPath(node.item));
}

bool NodeFilter::isBelowPath(const TreeItem *item) const
{
    const TreeItem *above = item->parentItem();
    while (above && above != m_top) {
        above = above->parentItem();
    }
    return above;
}

BestMatches::BestMatches(const SearchNodes &nodes, int limit)
    : m_nodes(nodes)
    , m_limit(limit)
{
}

bool BestMatches::canAdd(float score) const
{
    return m_matches.size() < m_limit || score >= m_matches.constFirst().score;
}

void BestMatches::add(const Match &match)
{
    const auto isBetterThan = [this](const Match &a, const Match &b) { return isBetter(a, b); };
    if (m_matches.size() == m_limit) {
        if (!isBetter(match, m_matches.constFirst())) {
            return;
        }
        std::pop_heap(m_matches.begin(), m_matches.end(), isBetterThan);
        m_matches.removeLast();
    }
    m_matches.append(match);
    std::push_heap(m_matches.begin(), m_matches.end(), isBetterThan);
}

QVector<Match> BestMatches::take()
{
    std::sort(m_matches.begin(), m_matches.end(),
              [this](const Match &a, const Match &b) { return isBetter(a, b); });
    return m_matches;
}

bool BestMatches::isBetter(const Match &a, const Match &b) const
{
    if (a.score != b.score) {
        return a.score > b.score;
    }
    const SearchNode &nodeA = m_nodes.at(a.position);
    const SearchNode &nodeB = m_nodes.at(b.position);
    if (nodeA.depth != nodeB.depth) {
        return nodeA.depth < nodeB.depth;
    }
    if (nodeA.locationHash != nodeB.locationHash) {
        return nodeA.locationHash < nodeB.locationHash;
    }
    return nodeA.item->location() < nodeB.item->location();
}
