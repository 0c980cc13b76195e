// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/entrywords.h"

#include "search/entrytexts.h"
#include "search/transliteration.h"
#include "search/words.h"

#include <algorithm>

namespace
{
constexpr int MaxWordsOfText = 1000; ///< of untrusted files
constexpr int MaxWordsOfKeyword = 3; ///< beyond, it is a description

/// Returns whether a word that is in @p field is found no better when it is in @p weaker, too.
bool includes(Field field, Field weaker)
{
    return field == weaker || field == Field::Title || weaker == Field::Description
           || (field == Field::EnglishTitle && weaker == Field::EnglishKeyword);
}

/// Returns whether a text in @p other may be the same as that in @p field, untranslated.
bool isTranslation(Field field, Field other)
{
    return field <= Field::Keyword && (other == Field::EnglishTitle || other == Field::EnglishKeyword);
}

class Collector
{
public:
    void add(const QString &text, Field field)
    {
        const QVector<Word> words = wordsOf(text).mid(0, MaxWordsOfText);
        for (const Word &word : words) {
            addWord(word, field);
        }
        const QVector<Word> whole = withoutJoints(words);
        for (const Word &word : whole) {
            if (std::none_of(words.cbegin(), words.cend(), [&](const Word &part) {
                    return part.start == word.start && part.length == word.length;
                })) {
                addWord(word, field);
            }
        }
    }

    QVector<EntryWord> words;

private:
    void addWord(const Word &word, Field field)
    {
        addForm(word.typed, field, Form::Typed);
        if (word.folded != word.typed) {
            addForm(word.folded, field, Form::Folded);
        }
        const QString latin = inLatinLetters(word.typed);
        const QStringList syllables = latin.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        addForm(syllables.join(QString()).left(MaxLetters), field, Form::Latin);
        if (syllables.size() > 1) {
            std::for_each(syllables.cbegin(), syllables.cend(), [&](const QString &syllable) {
                addForm(syllable.left(MaxLetters), field, Form::Latin);
            });
        }
    }

    /// Adds a word, or a mention of one that says the same: fields and forms are added in the order of their weight.
    void addForm(const QString &text, Field field, Form form)
    {
        const auto isSame = [&](const EntryWord &word) {
            return word.text == text && includes(word.field, field);
        };
        const auto known = std::find_if(words.begin(), words.end(), isSame);
        if (text.isEmpty()) {
            return;
        }
        if (known == words.end()) {
            words.append({text, field, form, 0});
        } else if (known->form == form && !isTranslation(known->field, field)) {
            known->mentions = std::min(known->mentions + 1, Posting::MaxMentions);
        }
    }
};

/// Of the many words of a sentence, each says little.
bool isSentence(const QString &keyword)
{
    return wordsOf(keyword).size() > MaxWordsOfKeyword;
}
}

QVector<EntryWord> wordsOfEntry(const EntryTexts &texts)
{
    Collector collector;
    collector.add(texts.title, Field::Title);
    for (const QString &keyword : texts.keywords) {
        collector.add(keyword, isSentence(keyword) ? Field::Description : Field::Keyword);
    }
    collector.add(texts.englishTitle, Field::EnglishTitle);
    for (const QString &keyword : texts.englishKeywords) {
        collector.add(keyword, isSentence(keyword) ? Field::Description : Field::EnglishKeyword);
    }
    collector.add(texts.description, Field::Description);
    return collector.words;
}

int countOfWords(const QString &title)
{
    return wordsOf(title).size();
}
