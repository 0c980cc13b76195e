// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "models/itemrows.h"

/// The rows to remove and the items to append so that rows show other items. Rows that stay keep their order; of equal
/// items they are used for the first ones.
struct RowDifference {
    /// @p wanted may name an item more than once, and contains no null.
    RowDifference(const ItemRows &rows, const QList<TreeItem *> &wanted);

    bool isEmpty() const;

    QVector<int> obsolete; ///< rows, the last one first
    QVector<QPointer<TreeItem>> missing; ///< in the order of the wanted ones
};
