// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/searchquery.h"

#include <QVector>

class SearchIndex;

/// A node that matches a query.
struct Match {
    int position; ///< among the nodes of the index
    float score; ///< up to 1
};

/// Returns the nodes of @p index that match @p query, the best one first. The time does not depend on the length of the
/// text.
QVector<Match> matchesOf(const SearchQuery &query, const SearchIndex &index);
