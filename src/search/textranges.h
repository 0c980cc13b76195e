// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QVector>

/// A part of a text, in UTF-16 units.
struct TextRange {
    int start;
    int length;

    bool operator==(const TextRange &other) const
    {
        return start == other.start && length == other.length;
    }
};

/// Returns the parts of @p text that match a word of @p query, in their order and without overlaps. For each word these
/// are the strict matches; if there are none, those with typos; else what is similar.
QVector<TextRange> rangesOf(const QString &text, const QString &query);
