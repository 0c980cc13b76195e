// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/querymatcher.h"

#include "registry/treeitem.h"
#include "search/bestmatches.h"
#include "search/searchindex.h"
#include "search/words.h"
#include "search/wordscores.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{
constexpr int MaxParts = 12;
constexpr float WeightOfAncestors = 0.35F;

using Scores = std::vector<WordScores>;

Scores scoresOf(const QVector<Word> &words, int maxWords, const SearchIndex &index)
{
    const int count = std::min(words.size(), maxWords);
    Scores scores;
    scores.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        scores.emplace_back(words.at(i), index);
    }
    return scores;
}

void addLike(Scores *scores, MatchKind kind)
{
    for (WordScores &word : *scores) {
        word.addLike(kind);
    }
}

/// Returns the weight of each word: the rarer, the higher. A word that is nowhere weighs half of the others' average,
/// because it does not tell which entry is meant.
std::vector<float> weightsOf(const Scores &scores, const SearchIndex &index)
{
    std::vector<float> weights;
    float sum = 0;
    int known = 0;
    for (const WordScores &word : scores) {
        const float weight = word.matches().empty()
                                 ? 0
                                 : std::log1p(float(index.nodes().readCount()) / float(word.matches().size()));
        sum += weight;
        known += weight > 0 ? 1 : 0;
        weights.push_back(weight);
    }
    const float ofUnknown = known > 0 ? sum / float(known) / 2 : 1;
    std::replace(weights.begin(), weights.end(), 0.0F, ofUnknown);
    return weights;
}

/// Returns the best score of the titles above the node at @p position.
float scoreAbove(const WordScores &word, int position, const SearchNodes &nodes)
{
    float score = 0;
    for (int above = nodes.at(position).parent; above >= 0; above = nodes.at(above).parent) {
        score = std::max(score, word.ofTitle(above));
    }
    return score;
}

class Evaluation
{
public:
    Evaluation(const Scores &scores, const SearchIndex &index)
        : m_scores(scores)
        , m_nodes(index.nodes())
        , m_weights(weightsOf(scores, index))
    {
        for (size_t i = 0; i < scores.size(); ++i) {
            m_sum += m_weights[i];
            m_canBeAbove.push_back(scores.size() > 1 && scores[i].hasTitlesAbove());
        }
    }

    /// Calls @p visit once for each node that matches a word by its own texts.
    template<typename Visit>
    void forEachNode(const Visit &visit) const
    {
        for (auto word = m_scores.cbegin(); word != m_scores.cend(); ++word) {
            for (const int position : word->matches()) {
                const auto isIn = [position](const WordScores &earlier) { return earlier.own(position) > 0; };
                if (std::none_of(m_scores.cbegin(), word, isIn)) {
                    visit(position);
                }
            }
        }
    }

    /// Returns the score without coverage(), 0 when the words that match the node are less than the share @p required.
    float scoreOf(int position, float required) const
    {
        constexpr float Rounding = 0.001F;
        float possible = (1 + Rounding - required) * m_sum; // what can be missing
        float score = 0;
        for (size_t i = 0; i < m_scores.size() && possible > 0; ++i) {
            float best = m_scores[i].own(position);
            if (best <= 0 && m_canBeAbove[i]) {
                best = WeightOfAncestors * scoreAbove(m_scores[i], position, m_nodes);
            }
            score += best * m_weights[i];
            possible -= best > 0 ? 0 : m_weights[i];
        }
        return possible > 0 ? score / m_sum : 0;
    }

    /// Returns the part of its score that a node gets: more for short titles.
    float coverage(int position) const
    {
        return 0.8F + 0.2F / float(std::max<int>(1, m_nodes.at(position).titleWords));
    }

private:
    const Scores &m_scores;
    const SearchNodes &m_nodes;
    const std::vector<float> m_weights;
    std::vector<bool> m_canBeAbove; ///< for each word, whether it can be in the title of a node above
    float m_sum = 0;
};

/// One run of a query, from the strictest stage to the one that finds something.
class Run
{
public:
    Run(const SearchQuery &query, const SearchIndex &index)
        : m_query(query)
        , m_index(index)
        , m_filter(query, index)
    {
    }

    QVector<Match> matches() const
    {
        const QVector<Word> parts = wordsOf(m_query.text.left(MaxLettersOfQuery));
        const QVector<Word> words = withoutJoints(parts);
        if (words.isEmpty()) {
            return {};
        }
        Scores joined = scoresOf(words, MaxWordsOfQuery, m_index);
        Scores split = words.size() == parts.size() ? Scores() : scoresOf(parts, MaxWordsOfQuery, m_index);
        QVector<Match> found = best(joined, split, All);
        if (found.isEmpty() && !m_query.isStrict) {
            addLike(&joined, MatchKind::Typo);
            addLike(&split, MatchKind::Typo);
            found = best(joined, split, All);
        }
        return found.isEmpty() && !m_query.isStrict ? mostWords(parts, split.empty() ? &joined : &split) : found;
    }

private:
    static constexpr float All = 1;
    static constexpr float Most = 0.3F;

    /// @p scores are those of @p parts, with typos.
    QVector<Match> mostWords(const QVector<Word> &parts, Scores *scores) const
    {
        const auto isRun = [](const Word &word) { return word.isRun; };
        if (std::none_of(parts.cbegin(), parts.cend(), isRun)) {
            addLike(scores, MatchKind::Similar);
            return best(*scores, Most);
        }
        QVector<Word> words;
        for (const Word &word : parts) {
            words += word.isRun ? groupsOf(word) : QVector<Word>{word};
        }
        Scores groups = scoresOf(words, MaxParts, m_index);
        addLike(&groups, MatchKind::Similar);
        return best(groups, Most);
    }

    QVector<Match> best(const Scores &joined, const Scores &split, float required) const
    {
        QVector<Match> found = best(joined, required);
        return found.isEmpty() ? best(split, required) : found;
    }

    QVector<Match> best(const Scores &scores, float required) const
    {
        const Evaluation evaluation(scores, m_index);
        BestMatches matches(m_index.nodes(), m_query.limit);
        evaluation.forEachNode([&](int position) {
            const float most = evaluation.scoreOf(position, required);
            if (most <= 0 || !matches.canAdd(most)) {
                return; // most nodes, which need not be read for that
            }
            const float score = most * evaluation.coverage(position);
            if (matches.canAdd(score) && m_filter.accepts(position)) {
                matches.add({position, score});
            }
        });
        return matches.take();
    }

    const SearchQuery &m_query;
    const SearchIndex &m_index;
    const NodeFilter m_filter;
};
}

QVector<Match> matchesOf(const SearchQuery &query, const SearchIndex &index)
{
    return index.root() && query.limit > 0 ? Run(query, index).matches() : QVector<Match>();
}
