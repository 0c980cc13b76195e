// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>
#include <QVector>

/// A word of a text, or a run of letters of a script that is written without spaces.
struct Word {
    QString typed; ///< in lower case, with its marks
    QString folded; ///< without marks; the same as typed for most words
    int start; ///< in the text
    int length;
    bool isRun; ///< of a script that is written without spaces
    bool isJoined; ///< to the word before by a hyphen, an apostrophe or a full stop
};
Q_DECLARE_TYPEINFO(Word, Q_MOVABLE_TYPE);

/// Returns the words of @p text. Those that are longer than MaxLetters are cut into several.
QVector<Word> wordsOf(const QString &text);

/// Returns @p words with those that are joined, such as those of "Wi-Fi", as one word: "wifi".
QVector<Word> withoutJoints(const QVector<Word> &words);

/// Returns the parts of @p run by which texts in its script can be compared: groups of two or three letters.
QVector<Word> groupsOf(const Word &run);

/// Returns the number of letters from which on @p folded is looked for inside of words.
int minLettersInside(const QString &folded);

constexpr int MaxLetters = 64; ///< of a word, in UTF-16 units
constexpr int MaxLettersOfText = 8192; ///< of an entry, what follows is ignored
constexpr int MaxLettersOfQuery = 256; ///< what follows is ignored
constexpr int MaxWordsOfQuery = 8;
