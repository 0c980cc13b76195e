// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/wordscores.h"

#include "search/searchindex.h"

#include <algorithm>

namespace
{
constexpr float Full = 0xFFFF; ///< the best score, as a whole number
}

WordScores::WordScores(const Word &word, const SearchIndex &index)
    : m_index(index)
    , m_forms(formsOf(word))
    , m_scores(size_t(index.nodes().size()))
{
    addStrict();
}

void WordScores::addLike(MatchKind kind)
{
    if (kind == MatchKind::Typo && m_isKnown) {
        return;
    }
    if (!m_isLikeFound) {
        m_isLikeFound = true;
        findLike();
    }
    for (const Like &like : m_like) {
        if (like.match.kind <= kind) {
            add(like.word, like.match.quality);
        }
    }
}

float WordScores::own(int position) const
{
    return float(m_scores[size_t(position)].own) * (1 / Full);
}

float WordScores::ofTitle(int position) const
{
    return float(m_scores[size_t(position)].title) * (1 / Full);
}

bool WordScores::hasTitlesAbove() const
{
    return std::any_of(m_matches.cbegin(), m_matches.cend(), [this](int position) {
        return m_scores[size_t(position)].title > 0 && m_index.nodes().at(position).children > 0;
    });
}

const std::vector<int> &WordScores::matches() const
{
    return m_matches;
}

void WordScores::addStrict()
{
    const Vocabulary &vocabulary = m_index.vocabulary();
    for (const QueryForm &form : m_forms) {
        for (int word = 0; word < vocabulary.size(); ++word) {
            if (form.canBeStrict(vocabulary.signature(word))) {
                const WordMatch match = form.strictMatch(vocabulary.word(word));
                m_isKnown = m_isKnown || match.quality >= 1;
                add(word, match.quality * form.weight());
            }
        }
    }
}

void WordScores::findLike()
{
    const Vocabulary &vocabulary = m_index.vocabulary();
    for (const QueryForm &form : m_forms) {
        for (int word = 0; word < vocabulary.size(); ++word) {
            if (!form.canBeLike(vocabulary.signature(word))) {
                continue;
            }
            const WordMatch match = form.match(vocabulary.word(word));
            if (match.kind != MatchKind::None) {
                m_like.push_back({word, {match.kind, match.quality * form.weight()}});
            }
        }
    }
}

/// Adds the nodes with @p word.
void WordScores::add(int word, float quality)
{
    if (quality <= 0) {
        return;
    }
    const Vocabulary &vocabulary = m_index.vocabulary();
    const quint32 *const end = vocabulary.postingsEnd(word);
    for (const quint32 *posting = vocabulary.postingsBegin(word); posting != end; ++posting) {
        const int node = Posting::nodeOf(*posting);
        Score &score = m_scores[size_t(node)];
        const float weight = Posting::weightOf(*posting);
        const auto value = quint16(Full * quality * weight);
        if (score.own == 0) {
            m_matches.push_back(node);
        }
        score.own = std::max(score.own, value);
        if (Posting::isInTitle(*posting)) {
            score.title = std::max(score.title, value);
        }
    }
}
