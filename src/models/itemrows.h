// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/treeitem.h"

#include <QHash>
#include <QPointer>
#include <QVector>

/**
 * Rows of tree items, which are not owned and may be deleted one by one. Finding, appending and removing a row takes
 * logarithmic time, so that a page may lose all of its rows in a batch; moving one takes linear time. An item may have
 * several rows. A row whose item was deleted, but which is not removed yet, reads as null.
 */
class ItemRows
{
public:
    void reset(const QList<TreeItem *> &items);
    int count() const;
    TreeItem *at(int row) const; ///< null when there is no such row
    int rowOf(const QObject *item) const; ///< the last of its rows, -1 when it has none; @p item may be deleted
    int firstRowOf(const QObject *item) const; ///< the first of its rows, otherwise the same
    int countOf(const QObject *item) const; ///< the number of its rows; @p item may be deleted
    void append(TreeItem *item);
    void removeAt(int row);
    void move(int from, int to);

private:
    struct Slot {
        QPointer<TreeItem> item;
        const QObject *key; ///< the item, also when it is deleted
        int previous = -1; ///< of the slots of the same item
        int next = -1;
    };
    struct SlotsOfItem {
        int first = -1;
        int last = -1;
        int count = 0;
    };

    QVector<Slot> rows() const;
    void assign(const QVector<Slot> &rows);
    void clear(int capacity);
    void appendSlot(const QPointer<TreeItem> &item, const QObject *key);
    void link(int slot);
    void unlink(int slot);
    int slotOfRow(int row) const;
    int rowOfSlot(int slot) const;
    int removedBefore(int slot) const;

    QVector<Slot> m_slots; ///< those of removed rows, too, until they are many
    QHash<const QObject *, SlotsOfItem> m_slotsOf; ///< without those of removed rows
    /// Fenwick tree over the slots: element i counts the removed ones of the (i & -i) slots that end with slot i - 1.
    QVector<int> m_removed{0};
    int m_count = 0;
};
