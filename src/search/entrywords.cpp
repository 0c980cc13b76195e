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

class Collector
{
public:
    void add(const QVector<Word> &words, Field field)
    {
        for (const Word &word : words) {
            addWord(word, field);
        }
        const QVector<Word> whole = withoutJoints(words);
        for (int i = 0; i < whole.size() && whole.size() < words.size(); ++i) {
            addWord(whole.at(i), field);
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
        return wordsOf(text).mid(0, MaxWordsOfText);
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

    /// Adds what does not say the same as a word that is there: fields and forms are added in the order of their weight.
    void addForm(const QString &text, Field field, Form form)
    {
        const auto isSame = [&](const EntryWord &word) {
            return word.text == text && (word.field == field || word.field == Field::Title);
        };
        if (!text.isEmpty() && std::none_of(words.cbegin(), words.cend(), isSame)) {
            words.append({text, field, form});
        }
    }
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
