// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

#include <array>
#include <vector>

/// A list in PostingLists: a value itself, or the place of several.
struct PostingList {
    quint32 count = 0;
    quint32 place = 0; ///< the value of a list of one
};

/// Many lists of numbers, most of them short, in one block of memory.
class PostingLists
{
public:
    const quint32 *begin(const PostingList &list) const;
    const quint32 *end(const PostingList &list) const;

    void append(PostingList *list, quint32 value);
    /// Removes the values for which @p isRemoved is true.
    template<typename Predicate>
    void removeIf(PostingList *list, const Predicate &isRemoved);

    void squeeze();
    size_t memory() const; ///< in bytes

private:
    static int sizeClassOf(quint32 count);
    quint32 allocate(int sizeClass);
    void release(const PostingList &list);
    void assign(PostingList *list, const std::vector<quint32> &values);

    std::vector<quint32> m_values;
    std::array<std::vector<quint32>, 32> m_free; ///< the places of each size class, a power of two
};

template<typename Predicate>
void PostingLists::removeIf(PostingList *list, const Predicate &isRemoved)
{
    std::vector<quint32> kept;
    for (const quint32 *value = begin(*list); value != end(*list); ++value) {
        if (!isRemoved(*value)) {
            kept.push_back(*value);
        }
    }
    if (kept.size() != list->count) {
        assign(list, kept);
    }
}
