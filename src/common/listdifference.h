// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QStringList>
#include <QVector>

/// The steps that turn a list into another one: first the removals, then the moves, then the insertions.
struct ListDifference {
    struct Range {
        int first;
        int last;
    };
    struct Move {
        int from;
        int to; ///< the row that it is inserted before, while it is still at its old place
    };

    bool hasTooManyMoves = false; ///< there are no steps then
    QVector<Range> removals; ///< the last one first
    QVector<Move> moves; ///< each after those before it
    QVector<Range> insertions; ///< rows of the new list, the first one first
    /// For each row of the new list the row of the old one that it was, -1 for an inserted one.
    QVector<int> origins;
};

/**
 * Returns how the list with the keys @p before becomes the one with the keys @p after, with up to @p maxMoves moves. Of
 * equal keys the first one stands for the first one, and so on. A longest increasing sequence of the rows that stay is
 * not moved.
 */
VELKASETTINGS_PRIVATE_EXPORT ListDifference differenceOf(const QStringList &before, const QStringList &after,
                                                         int maxMoves);

/// Returns the positions of a longest increasing subsequence of @p values, which are all different.
VELKASETTINGS_PRIVATE_EXPORT QVector<int> longestIncreasingSubsequence(const QVector<int> &values);
