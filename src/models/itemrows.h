// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/treeitem.h"

#include <QHash>
#include <QPointer>
#include <QVector>

/**
 * Rows of tree items that are not owned and vanish one by one between two resets. Finding and removing a row takes
 * logarithmic time, so that a page may lose all of its rows in a batch. An item that died without being removed
 * yet reads as null.
 */
class ShrinkingRows
{
public:
    void reset(const QList<TreeItem *> &items); ///< no item stands twice
    int count() const;
    TreeItem *at(int row) const; ///< null when there is no such row
    int rowOf(const QObject *item) const; ///< -1 when it has none; @p item may be dead
    void remove(const QObject *item);

private:
    int slotOfRow(int row) const;
    int rowsBefore(int slot) const;

    QVector<QPointer<TreeItem>> m_slots; ///< as they were at the reset
    QHash<const QObject *, int> m_slotOf;
    /// Fenwick tree over the slots: element i counts the removed ones of the (i & -i) slots that end with slot i - 1.
    QVector<int> m_removed;
    int m_count = 0;
};
