// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/listdifference.h"

#include <QHash>

#include <algorithm>
#include <numeric>

namespace
{
constexpr int None = -1;

/// Returns the row of @p before for each row of @p after, None for a new one.
QVector<int> originsOf(const QStringList &before, const QStringList &after)
{
    const int shorter = std::min(before.size(), after.size());
    int begin = 0;
    while (begin < shorter && before.at(begin) == after.at(begin)) {
        ++begin;
    }
    int end = 0;
    while (end < shorter - begin && before.at(before.size() - 1 - end) == after.at(after.size() - 1 - end)) {
        ++end;
    }
    QVector<int> origins(after.size());
    std::iota(origins.begin(), origins.begin() + begin, 0);
    std::iota(origins.end() - end, origins.end(), before.size() - end);

    QHash<QString, QVector<int>> rowsOf; // the last one first
    for (int row = before.size() - end - 1; row >= begin; --row) {
        rowsOf[before.at(row)].append(row);
    }
    for (int row = begin; row < after.size() - end; ++row) {
        const auto rows = rowsOf.find(after.at(row));
        origins[row] = rows == rowsOf.end() || rows->isEmpty() ? None : rows->takeLast();
    }
    return origins;
}

ListDifference tooManyMoves()
{
    ListDifference difference;
    difference.hasTooManyMoves = true;
    return difference;
}

/// Returns the ranges of the rows below @p count for which @p isIn is true.
template<typename Predicate>
QVector<ListDifference::Range> rangesOf(int count, const Predicate &isIn)
{
    QVector<ListDifference::Range> ranges;
    for (int row = 0; row < count; ++row) {
        if (!isIn(row)) {
            continue;
        }
        if (!ranges.isEmpty() && ranges.last().last == row - 1) {
            ranges.last().last = row;
        } else {
            ranges.append({row, row});
        }
    }
    return ranges;
}

/// Returns the moves that sort @p order, in which each number below its size is once. Those at the positions
/// @p sorted are in place.
QVector<ListDifference::Move> movesOf(QVector<int> order, const QVector<int> &sorted)
{
    QVector<bool> stays(order.size(), false);
    for (const int position : sorted) {
        stays[order.at(position)] = true;
    }
    QVector<ListDifference::Move> moves;
    int to = 0; // behind the rows that are in place
    for (int row = 0; row < order.size(); ++row) {
        if (stays.at(row)) {
            to = order.indexOf(row, to) + 1;
            continue;
        }
        const int from = order.indexOf(row);
        if (from != to) {
            moves.append({from, to});
            order.move(from, from < to ? to - 1 : to);
        }
        to = from < to ? to : to + 1;
    }
    return moves;
}
}

ListDifference differenceOf(const QStringList &before, const QStringList &after, int maxMoves)
{
    ListDifference difference;
    difference.origins = originsOf(before, after);

    // The new place of each row among those that stay, in the old order
    QVector<int> places(before.size(), None);
    int stay = 0;
    for (const int origin : qAsConst(difference.origins)) {
        if (origin != None) {
            places[origin] = stay++;
        }
    }
    const auto isRemoved = [&places](int row) { return places.at(row) == None; };
    const auto isInserted = [&difference](int row) { return difference.origins.at(row) == None; };
    difference.removals = rangesOf(before.size(), isRemoved);
    std::reverse(difference.removals.begin(), difference.removals.end());
    difference.insertions = rangesOf(after.size(), isInserted);

    places.removeAll(None);
    if (std::is_sorted(places.cbegin(), places.cend())) {
        return difference;
    }
    const QVector<int> sorted = longestIncreasingSubsequence(places);
    if (places.size() - sorted.size() > maxMoves) {
        return tooManyMoves();
    }
    difference.moves = movesOf(places, sorted);
    return difference;
}

QVector<int> longestIncreasingSubsequence(const QVector<int> &values)
{
    QVector<int> ends; // the position of the smallest end of a sequence of each length
    QVector<int> previous(values.size(), None);
    for (int position = 0; position < values.size(); ++position) {
        auto *const end = std::lower_bound(ends.begin(), ends.end(), position,
                                           [&values](int a, int b) { return values.at(a) < values.at(b); });
        if (end != ends.begin()) {
            previous[position] = *std::prev(end);
        }
        if (end == ends.end()) {
            ends.append(position);
        } else {
            *end = position;
        }
    }
    QVector<int> sequence;
    for (int position = ends.isEmpty() ? None : ends.last(); position != None; position = previous.at(position)) {
        sequence.append(position);
    }
    std::reverse(sequence.begin(), sequence.end());
    return sequence;
}
