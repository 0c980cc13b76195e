// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/queryword.h"

#include <vector>

class SearchIndex;

/// How well each node of an index matches one word of a query.
class WordScores
{
public:
    WordScores(const Word &word, const SearchIndex &index);

    /// Adds the nodes with words that match like @p kind or better. A word that is equal to one of the index has no
    /// typo, but can be similar to the others.
    void addLike(MatchKind kind);

    /// Returns the score of the node at @p position by its own texts, 0 when it does not match.
    float own(int position) const;
    /// Returns the score of the node by its titles alone.
    float ofTitle(int position) const;
    /// Returns whether a title of a node that has others below it matches.
    bool hasTitlesAbove() const;
    const std::vector<int> &matches() const; ///< the nodes that match by their own texts, each once

private:
    struct Score {
        quint16 own = 0;
        quint16 title = 0;
    };
    struct Like {
        int word;
        WordMatch match;
    };

    void addStrict();
    void findLike();
    void add(int word, float quality);

    const SearchIndex &m_index;
    const QVector<QueryForm> m_forms;
    std::vector<Score> m_scores;
    std::vector<Like> m_like; ///< found only once
    bool m_isLikeFound = false;
    bool m_isKnown = false; ///< equal to a word of the index
    std::vector<int> m_matches;
};
