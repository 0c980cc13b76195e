// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/rowdifference.h"

#include <algorithm>
#include <iterator>

namespace
{
using Counts = QHash<const TreeItem *, int>;

Counts countsOf(const QList<TreeItem *> &items)
{
    Counts counts;
    for (const TreeItem *item : items) {
        ++counts[item];
    }
    return counts;
}

/// Subtracts one from the count of @p item. Returns false if it is not above zero.
bool takeOne(Counts *counts, const TreeItem *item)
{
    const auto found = counts->find(item);
    if (found == counts->end() || *found == 0) {
        return false;
    }
    --*found;
    return true;
}
}

RowDifference::RowDifference(const ItemRows &rows, const QList<TreeItem *> &wanted)
{
    Counts lacking = countsOf(wanted); // how many rows of an item are still to be found
    for (int row = rows.count() - 1; row >= 0; --row) {
        if (!takeOne(&lacking, rows.at(row))) {
            obsolete.append(row);
        }
    }
    std::copy_if(wanted.crbegin(), wanted.crend(), std::back_inserter(missing),
                 [&lacking](const TreeItem *item) { return takeOne(&lacking, item); });
    std::reverse(missing.begin(), missing.end());
}

bool RowDifference::isEmpty() const
{
    return obsolete.isEmpty() && missing.isEmpty();
}
