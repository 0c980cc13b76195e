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
constexpr int MaxNodes = 1 << 27;

constexpr quint32 make(int node, Field field, Form form)
{
    return quint32(node) << 5U | quint32(field) << 2U | quint32(form);
}

constexpr int nodeOf(quint32 posting)
{
    return int(posting >> 5U);
}

constexpr Field fieldOf(quint32 posting)
{
    return Field(posting >> 2U & 7U);
}

constexpr Form formOf(quint32 posting)
{
    return Form(posting & 3U);
}

constexpr bool isInTitle(quint32 posting)
{
    return fieldOf(posting) == Field::Title || fieldOf(posting) == Field::EnglishTitle;
}
}
