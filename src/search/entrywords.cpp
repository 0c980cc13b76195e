// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/entrywords.h"

#include "search/entrytexts.h"
#include "search/transliteration.h"
#include "search/words.h"

#include <algorithm>

namespace
{
constexpr int MaxForms = 2000; ///< of the words of an entry of an untrusted file
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

bool isOneOf(const QVector<Word> &words, const Word &word)
{
    return std::any_of(words.cbegin(), words.cend(), [&word](const Word &other) {
        return other.start == word.start && other.length == word.length;
    });
}

class Collector
{
public:
    void add(const QVector<Word> &words, Field field)
    {
        for (const Word &word : words) {
            addWord(word, field);
        }
        const auto isJoined = [](const Word &word) { return word.isJoined; };
        if (std::any_of(words.cbegin(), words.cend(), isJoined)) {
            addJoined(words, field);
        }
    }

    /// Of the many words of a long keyword, each says as little as those of a description.
    void addKeywords(const QStringList &keywords, Field field)
    {
        for (const QString &keyword : keywords) {
            const QVector<Word> words = textWords(keyword);
            add(words, words.size() > MaxWordsOfKeyword ? Field::Description : field);
        }
    }

    static QVector<Word> textWords(const QString &text)
    {
        return wordsOf(text.left(MaxLettersOfText)).mid(0, MaxForms);
    }

    QVector<EntryWord> words;

private:
    void addJoined(const QVector<Word> &words, Field field)
    {
        const QVector<Word> whole = withoutJoints(words);
        for (const Word &word : whole) {
            if (!isOneOf(words, word)) {
                addWord(word, field);
            }
        }
    }

    void addWord(const Word &word, Field field)
    {
        addForm(word.typed, field, Form::Typed);
        if (word.folded != word.typed) {
            addForm(word.folded, field, Form::Folded);
        }
        const QString latin = inLatinLetters(word.typed);
        if (!latin.isEmpty()) {
            addLatin(latin, field);
        }
    }

    void addLatin(const QString &latin, Field field)
    {
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
        if (text.isEmpty() || m_forms == MaxForms) {
            return;
        }
        ++m_forms;
        auto *const known = std::find_if(words.begin(), words.end(), isSame);
        if (known == words.end()) {
            words.append({text, field, form, 0});
        } else if (known->form == form && !isTranslation(known->field, field)) {
            known->mentions = std::min(known->mentions + 1, Posting::MaxMentions);
        }
    }

    int m_forms = 0; ///< how many were added, repeated ones too
};
}

EntryWords wordsOfEntry(const EntryTexts &texts)
{
    const QVector<Word> title = Collector::textWords(texts.title);
    Collector collector;
    collector.add(title, Field::Title);
    collector.addKeywords(texts.keywords, Field::Keyword);
    collector.add(Collector::textWords(texts.englishTitle), Field::EnglishTitle);
    collector.addKeywords(texts.englishKeywords, Field::EnglishKeyword);
    collector.add(Collector::textWords(texts.description), Field::Description);
    return {collector.words, title.size()};
}
