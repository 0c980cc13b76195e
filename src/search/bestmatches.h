// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/querymatcher.h"

#include <QSet>

#include <optional>

class SearchNodes;
class TreeItem;

/// Decides which nodes can be results of a query, whatever their words are.
class NodeFilter
{
public:
    NodeFilter(const SearchQuery &query, const SearchIndex &index);

    bool accepts(int position) const;

private:
    bool isBelowPath(const TreeItem *item) const;

    const SearchNodes &m_nodes;
    const TreeItem *const m_top; ///< null when there is no node at the path
    const bool m_isWholeTree;
    std::optional<QSet<int>> m_types; ///< their numbers
    std::optional<QSet<int>> m_within;
};

/// Collects the best matches. Of those with equal scores, the one that is less deep in the tree is better; then it is the
/// location that decides, so that the same tree gives the same results.
class BestMatches
{
public:
    BestMatches(const SearchNodes &nodes, int limit);

    /// Returns false when a match with @p score is not among the best ones.
    bool canAdd(float score) const;
    void add(const Match &match);
    /// Returns the matches, the best one first.
    QVector<Match> take();

private:
    bool isBetter(const Match &a, const Match &b) const;

    const SearchNodes &m_nodes;
    const int m_limit;
    QVector<Match> m_matches; ///< a heap with the worst one at the top, once they are as many as the limit
};
