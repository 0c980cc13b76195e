// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

#include <optional>

/// What to search for.
struct SearchQuery {
    QString text;
    QStringList path = {}; ///< only entries below this place; of the whole tree when it is empty
    QStringList types = {}; ///< only entries of these types; of all when it is empty
    bool isStrict = false; ///< only what has all words, without typos
    int limit = 50; ///< the most results
    /// Only these places, as SearchResult::location, to refine earlier results.
    std::optional<QStringList> within = {};
};
