// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/// Where a word comes from, the most important one first.
enum class Field : quint8 {
    Title,
    Keyword,
    EnglishTitle,
    EnglishKeyword,
    Description,
};

/// The form that a word is in.
enum class Form : quint8 {
    Typed, ///< as it is written, in lower case
    Folded, ///< without marks
    Latin, ///< transliterated
};

/// A word in a text of a node, in 32 bits.
namespace Posting
{
constexpr int MaxMentions = 3;

constexpr quint32 make(int node, Field field, Form form, int mentions)
{
    return quint32(node) << 7U | quint32(mentions) << 5U | quint32(field) << 2U | quint32(form);
}

constexpr int nodeOf(quint32 posting)
{
    return int(posting >> 7U);
}

/// Returns the number of further texts of the node with the word.
constexpr int mentionsOf(quint32 posting)
{
    return int(posting >> 5U & 3U);
}

constexpr Field fieldOf(quint32 posting)
{
    return Field(posting >> 2U & 7U);
}

constexpr Form formOf(quint32 posting)
{
    return Form(posting & 3U);
}

/// Returns the weight of words in @p form: letters as typed are better.
constexpr float weightOf(Form form)
{
    return form == Form::Typed ? 1 : form == Form::Folded ? 0.95F : 0.9F;
}

constexpr float weightOf(Field field)
{
    constexpr float Weights[] = {1, 0.72F, 0.7F, 0.6F, 0.45F};
    return Weights[int(field)];
}

/// Returns the weight of a word with further @p mentions: an entry is about what it mentions often.
constexpr float weightOf(int mentions)
{
    constexpr float Weights[] = {0.7F, 0.85F, 0.9F, 0.925F};
    return Weights[mentions];
}

constexpr float weightOf(quint32 posting)
{
    return weightOf(mentionsOf(posting)) * weightOf(fieldOf(posting)) * weightOf(formOf(posting));
}

constexpr bool isInTitle(quint32 posting)
{
    return fieldOf(posting) == Field::Title || fieldOf(posting) == Field::EnglishTitle;
}
}
