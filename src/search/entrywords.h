// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/posting.h"

#include <QString>
#include <QVector>

struct EntryTexts;

/// A word of an entry in one of its forms.
struct EntryWord {
    QString text;
    Field field;
    Form form;
    int mentions; ///< in further texts, Posting::MaxMentions at most
};
Q_DECLARE_TYPEINFO(EntryWord, Q_MOVABLE_TYPE);

struct EntryWords {
    QVector<EntryWord> words;
    int titleWords; ///< how many words the title has
};

/// Returns the words by which an entry with @p texts is found.
EntryWords wordsOfEntry(const EntryTexts &texts);
