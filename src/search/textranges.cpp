// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/textranges.h"

#include "search/folding.h"
#include "search/queryword.h"
#include "search/transliteration.h"

#include <algorithm>

namespace
{
struct Found {
    MatchKind kind = MatchKind::None;
    TextRange range = {0, 0};
};

/// Returns how far into @p text its first @p count letters reach, when they are folded.
int lengthOfLetters(const QString &text, int count)
{
    int length = 0;
    int letters = 0;
    while (length < text.size() && letters < count) {
        const QChar c = text.at(length);
        const QString character = text.mid(length, c.isHighSurrogate() ? 2 : 1);
        if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate()) {
            letters += folded(lowered(character)).size();
        }
        length += character.size();
    }
    return length;
}

/// Returns the part of @p word, one of @p text, that has the letters @p form strictly.
TextRange strictRange(const QString &text, const Word &word, const QueryForm &form)
{
    const QString letters = folded(form.text());
    const int position = std::max(0, word.folded.indexOf(letters));
    const QString original = text.mid(word.start, word.length);
    const int first = lengthOfLetters(original, position);
    int end = lengthOfLetters(original, position + letters.size());
    while (end < original.size() && original.at(end).isMark()) {
        ++end;
    }
    return {word.start + first, std::max(1, end - first)};
}

Found findIn(const QString &text, const Word &word, const QueryForm &form)
{
    const TextRange whole{word.start, word.length};
    for (const QString &letters : {word.typed, word.folded}) {
        if (form.strictMatch(letters).kind == MatchKind::Strict) {
            return {MatchKind::Strict, strictRange(text, word, form)};
        }
    }
    const QString latin = inLatinLetters(word.typed).remove(QLatin1Char(' '));
    if (!latin.isEmpty() && form.strictMatch(latin).kind == MatchKind::Strict) {
        return {MatchKind::Strict, whole};
    }
    const MatchKind kind = form.canBeLike(~0U) ? form.match(word.folded).kind : MatchKind::None;
    return {kind, whole};
}

/// Returns the matches of one word of a query, all of the best kind.
QVector<TextRange> rangesOfWord(const QString &text, const QVector<Word> &words, const Word &queryWord)
{
    const QVector<QueryForm> forms = formsOf(queryWord);
    QVector<TextRange> ranges;
    MatchKind best = MatchKind::None;
    for (const Word &word : words) {
        for (const QueryForm &form : forms) {
            const Found found = findIn(text, word, form);
            if (found.kind < best) {
                best = found.kind;
                ranges.clear();
            }
            if (found.kind == best && best != MatchKind::None) {
                ranges.append(found.range);
            }
        }
    }
    return ranges;
}

/// Sorts @p ranges and joins those that overlap.
QVector<TextRange> joined(QVector<TextRange> ranges)
{
    std::sort(ranges.begin(), ranges.end(),
              [](const TextRange &a, const TextRange &b) { return a.start < b.start; });
    QVector<TextRange> result;
    for (const TextRange &range : qAsConst(ranges)) {
        const int end = range.start + range.length;
        if (!result.isEmpty() && range.start < result.last().start + result.last().length) {
            result.last().length = std::max(result.last().length, end - result.last().start);
        } else {
            result.append(range);
        }
    }
    return result;
}
}

QVector<TextRange> rangesOf(const QString &text, const QString &query)
{
    const QVector<Word> words = wordsOf(text.left(MaxLettersOfText));
    const QVector<Word> parts = wordsOf(query.left(MaxLettersOfQuery));
    const QVector<Word> whole = withoutJoints(parts);
    QVector<TextRange> ranges;
    const QVector<Word> queryWords = parts.mid(0, MaxWordsOfQuery) + whole.mid(0, MaxWordsOfQuery);
    for (const Word &queryWord : queryWords) {
        ranges += rangesOfWord(text, words, queryWord);
        ranges += rangesOfWord(text, withoutJoints(words), queryWord);
    }
    return joined(ranges);
}
