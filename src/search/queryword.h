// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/posting.h"
#include "search/words.h"

#include <QStringView>

/// How a word of a query matches one of an entry, the best one first.
enum class MatchKind : quint8 {
    Strict, ///< equal, its start, or inside it
    Typo, ///< with a few edits
    Similar, ///< with a typo in the first letter, the same beginning, or a part of a compound
    None,
};

struct WordMatch {
    MatchKind kind = MatchKind::None;
    float quality = 0; ///< up to 1
};

/// A form of a word of a query, ready to be compared with many words.
class QueryForm
{
public:
    QueryForm(const QString &text, Form form);

    /// Returns true for each signature of a word that match() can be strict for.
    bool canBeStrict(quint32 signature) const;
    /// Returns true for each signature of a word that match() can be anything else for.
    bool canBeLike(quint32 signature) const;
    WordMatch strictMatch(QStringView word) const;
    WordMatch match(QStringView word) const;
    QString text() const;
    float weight() const;

private:
    WordMatch typo(QStringView word) const;
    WordMatch similar(QStringView word) const;
    WordMatch lastPart(QStringView word) const;

    const QString m_text;
    const quint32 m_signature;
    const quint32 m_startSignature; ///< of the letters with which a similar word begins
    const int m_minLettersInside;
    const int m_edits; ///< that a typo can have
    const float m_weight;
};

/// Returns the forms of a word of a query.
QVector<QueryForm> formsOf(const Word &word);
