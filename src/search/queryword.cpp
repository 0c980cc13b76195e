// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/queryword.h"

#include "search/edits.h"
#include "search/transliteration.h"
#include "search/vocabulary.h"

#include <QtAlgorithms>

#include <algorithm>

namespace
{
constexpr int MinLettersOfAlphabets = 3; ///< inside of words
constexpr int MinLettersWithEdit = 4;
constexpr int MinLettersWithEditOfStart = 6;
constexpr int MinLettersWithOtherFirst = 5;
constexpr int MinLettersWithTwoEdits = 8;
constexpr int MinSameLetters = 4; ///< at the beginning of similar words
constexpr float MinShareOfInflected = 0.7F; ///< of the letters of the longer word
constexpr int MinLettersOfFirstPart = 5; ///< of a compound
constexpr int MinLettersOfLastPart = 6;
constexpr int MinLettersBeforeLastPart = 3; ///< fewer are a prefix
constexpr float MinShareOfPart = 0.5F;

/// Returns the number of edits with which a word of @p letters letters is still recognized.
int mostEditsOf(qsizetype letters)
{
    return letters < MinLettersWithEdit ? 0 : letters < MinLettersWithTwoEdits ? 1 : 2;
}

/// Numbers and syllables tell things apart.
int editsOf(const QString &text, int minLettersInside)
{
    const bool hasNumber = std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.isNumber(); });
    return hasNumber || minLettersInside < MinLettersOfAlphabets ? 0 : mostEditsOf(text.size());
}

int sameLettersOf(QStringView a, QStringView b)
{
    const auto end = std::mismatch(a.begin(), a.begin() + std::min(a.size(), b.size()), b.begin());
    return int(end.first - a.begin());
}

float share(qsizetype part, qsizetype whole)
{
    return float(part) / float(whole);
}
}

QueryForm::QueryForm(const QString &text, Form form)
    : m_text(text)
    , m_signature(Vocabulary::signatureOf(text))
    , m_startSignature(Vocabulary::signatureOf(QStringView(text).left(MinSameLetters)))
    , m_minLettersInside(minLettersInside(text))
    , m_edits(editsOf(text, m_minLettersInside))
    , m_weight(Posting::weightOf(form))
{
}

bool QueryForm::canBeStrict(quint32 signature) const
{
    return (m_signature & ~signature) == 0;
}

bool QueryForm::canBeLike(quint32 signature) const
{
    return m_edits > 0 && signature != 0
           && ((m_startSignature & ~signature) == 0 || (signature & ~m_signature) == 0
               || int(qPopulationCount(m_signature & ~signature)) <= m_edits);
}

WordMatch QueryForm::strictMatch(QStringView word) const
{
    if (word.startsWith(m_text)) {
        const bool isEqual = word.size() == m_text.size();
        return {MatchKind::Strict, isEqual ? 1 : 0.75F + 0.15F * share(m_text.size(), word.size())};
    }
    if (m_text.size() >= m_minLettersInside && word.contains(QStringView(m_text))) {
        return {MatchKind::Strict, 0.4F + 0.1F * share(m_text.size(), word.size())};
    }
    return {};
}

WordMatch QueryForm::match(QStringView word) const
{
    if (word.front() == m_text.front()) {
        const WordMatch match = typo(word);
        return match.kind == MatchKind::None ? similar(word) : match;
    }
    const bool hasOtherFirst = m_text.size() >= MinLettersWithOtherFirst && isWithinEdits(m_text, word, 1);
    return hasOtherFirst ? WordMatch{MatchKind::Similar, 0.35F} : lastPart(word);
}

QString QueryForm::text() const
{
    return m_text;
}

float QueryForm::weight() const
{
    return m_weight;
}

WordMatch QueryForm::typo(QStringView word) const
{
    const int mostEdits = std::min(m_edits, mostEditsOf(word.size()));
    for (int edits = 1; edits <= mostEdits; ++edits) {
        if (isWithinEdits(m_text, word, edits)) {
            return {MatchKind::Typo, edits == 1 ? 0.6F : 0.45F};
        }
    }
    const bool isStart = m_edits > 0 && m_text.size() >= MinLettersWithEditOfStart && word.size() > m_text.size()
                         && isStartWithinEdits(m_text, word, 1);
    return isStart ? WordMatch{MatchKind::Typo, 0.4F} : WordMatch();
}

/// Inflected words often have the same beginning, and a compound that of its first word.
WordMatch QueryForm::similar(QStringView word) const
{
    const int same = sameLettersOf(m_text, word);
    const float common = share(same, std::max<qsizetype>(m_text.size(), word.size()));
    const bool isInflected = same >= MinSameLetters && common >= MinShareOfInflected;
    const bool isCompound = same >= MinLettersOfFirstPart && same == word.size() && common >= MinShareOfPart;
    return isInflected || isCompound ? WordMatch{MatchKind::Similar, 0.4F * common} : lastPart(word);
}

/// In many languages, the last word of a compound says what it is.
WordMatch QueryForm::lastPart(QStringView word) const
{
    const float part = share(word.size(), m_text.size());
    const bool isLast = word.size() >= MinLettersOfLastPart && part >= MinShareOfPart
                        && m_text.size() - word.size() >= MinLettersBeforeLastPart && m_text.endsWith(word);
    return isLast ? WordMatch{MatchKind::Similar, 0.4F * part} : WordMatch();
}

QVector<QueryForm> formsOf(const Word &word)
{
    QVector<QueryForm> forms{{word.typed, Form::Typed}};
    if (word.folded != word.typed && !word.folded.isEmpty()) {
        forms.append({word.folded, Form::Folded});
    }
    const QString latin = inLatinLetters(word.typed).remove(QLatin1Char(' ')).left(MaxLetters);
    if (!latin.isEmpty()) {
        forms.append({latin, Form::Latin});
    }
    return forms;
}
