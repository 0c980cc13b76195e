// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/words.h"

#include "search/folding.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr uint EndOfAscii = 0x80;

bool isIdeograph(QChar::Script script)
{
    return script == QChar::Script_Han;
}

bool isSyllabary(QChar::Script script)
{
    return script == QChar::Script_Hiragana || script == QChar::Script_Katakana
           || script == QChar::Script_Bopomofo;
}

bool isWrittenWithoutSpaces(QChar::Script script)
{
    switch (script) {
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
    case QChar::Script_Tibetan:
        return true;
    default:
        return isIdeograph(script) || isSyllabary(script);
    }
}

bool isLetter(uint c)
{
    return QChar::isLetterOrNumber(c);
}

/// Returns true for what belongs to the word before it.
bool isContinuation(uint c)
{
    return c >= EndOfAscii && (QChar::isMark(c) || QChar::category(c) == QChar::Other_Format);
}

bool isJoint(QChar c)
{
    constexpr QChar TypographicApostrophe(0x2019);
    return c.category() == QChar::Punctuation_Dash || c.category() == QChar::Punctuation_Connector
           || c == QLatin1Char('\'') || c == TypographicApostrophe || c == QLatin1Char('.');
}

/// A position in a text.
class Reader
{
public:
    explicit Reader(const QString &text)
        : m_text(text)
    {
    }

    bool isAtEnd() const
    {
        return position >= m_text.size();
    }

    uint character() const
    {
        const QChar c = m_text.at(position);
        const bool isPair = c.isHighSurrogate() && position + 1 < m_text.size()
                            && m_text.at(position + 1).isLowSurrogate();
        return isPair ? QChar::surrogateToUcs4(c, m_text.at(position + 1)) : c.unicode();
    }

    void next()
    {
        position += QChar::requiresSurrogates(character()) ? 2 : 1;
    }

    int position = 0;

private:
    const QString &m_text;
};

bool isRunLetter(uint c, bool isInRun)
{
    if (c < EndOfAscii) {
        return false;
    }
    const QChar::Script script = QChar::script(c);
    const bool isOfAnyScript = script == QChar::Script_Common || script == QChar::Script_Inherited;
    return isOfAnyScript && !QChar::isNumber(c) ? isInRun : isWrittenWithoutSpaces(script);
}

/// Moves @p reader behind the word that it is at. Returns whether that is of a script without spaces.
bool passWord(Reader *reader)
{
    const int start = reader->position;
    const bool isRun = isRunLetter(reader->character(), false);
    do {
        reader->next();
    } while (!reader->isAtEnd() && reader->position - start < MaxLetters - 1
             && (isContinuation(reader->character())
                 || (isLetter(reader->character()) && isRunLetter(reader->character(), isRun) == isRun)));
    return isRun;
}

Word wordFrom(const QString &typed, int start, int length, bool isRun, bool isJoined)
{
    const QString cut = lowered(typed).left(MaxLetters);
    return {cut, folded(cut).left(MaxLetters), start, length, isRun, isJoined};
}

void appendTo(Word *word, const Word &next)
{
    word->typed = (word->typed + next.typed).left(MaxLetters);
    word->folded = (word->folded + next.folded).left(MaxLetters);
    word->length = next.start + next.length - word->start;
}
}

QVector<Word> wordsOf(const QString &text)
{
    QVector<Word> words;
    for (Reader reader(text); !reader.isAtEnd();) {
        if (!isLetter(reader.character())) {
            reader.next();
            continue;
        }
        const int start = reader.position;
        const bool isRun = passWord(&reader);
        const bool isJoined = !words.isEmpty() && words.constLast().start + words.constLast().length == start - 1
                              && !isRun && !words.constLast().isRun && isJoint(text.at(start - 1));
        Word word = wordFrom(text.mid(start, reader.position - start), start, reader.position - start, isRun,
                             isJoined);
        if (!word.typed.isEmpty()) { // not just a stroke that lengthens words
            words.append(std::move(word));
        }
    }
    return words;
}

QVector<Word> withoutJoints(const QVector<Word> &words)
{
    QVector<Word> whole;
    for (const Word &word : words) {
        if (word.isJoined) {
            appendTo(&whole.last(), word);
        } else {
            whole.append(word);
        }
    }
    return whole;
}

QVector<Word> groupsOf(const Word &run)
{
    const int letters = std::max(2, minLettersInside(run.folded));
    QVector<Word> groups;
    for (int first = 0; first + letters <= run.folded.size(); ++first) {
        const QString group = run.folded.mid(first, letters);
        groups.append({group, group, run.start, run.length, true, false});
    }
    return groups.isEmpty() ? QVector<Word>{run} : groups;
}

int minLettersInside(const QString &folded)
{
    constexpr int OfAlphabets = 3;
    int letters = OfAlphabets;
    for (Reader reader(folded); !reader.isAtEnd(); reader.next()) {
        const QChar::Script script = QChar::script(reader.character());
        letters = std::min(letters, isIdeograph(script) ? 1 : isSyllabary(script) ? 2 : OfAlphabets);
    }
    return letters;
}
