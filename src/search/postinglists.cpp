// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/postinglists.h"

#include <algorithm>

const quint32 *PostingLists::begin(const PostingList &list) const
{
    return list.count == 1 ? &list.place : m_values.data() + list.place;
}

const quint32 *PostingLists::end(const PostingList &list) const
{
    return begin(list) + list.count;
}

void PostingLists::append(PostingList *list, quint32 value)
{
    const bool isFull = list->count <= 1 || sizeClassOf(list->count + 1) != sizeClassOf(list->count);
    if (isFull) {
        std::vector<quint32> values(begin(*list), end(*list));
        values.push_back(value);
        assign(list, values);
    } else {
        m_values[list->place + list->count++] = value;
    }
}

void PostingLists::squeeze()
{
    m_values.shrink_to_fit();
}

size_t PostingLists::memory() const
{
    size_t memory = m_values.capacity() * sizeof(quint32);
    for (const std::vector<quint32> &places : m_free) {
        memory += places.capacity() * sizeof(quint32);
    }
    return memory;
}

/// Returns the smallest n with 2ⁿ ≥ @p count.
int PostingLists::sizeClassOf(quint32 count)
{
    int sizeClass = 0;
    while ((1U << unsigned(sizeClass)) < count) {
        ++sizeClass;
    }
    return sizeClass;
}

quint32 PostingLists::allocate(int sizeClass)
{
    std::vector<quint32> &places = m_free.at(size_t(sizeClass));
    if (!places.empty()) {
        const quint32 place = places.back();
        places.pop_back();
        return place;
    }
    const size_t place = m_values.size();
    const size_t size = place + (size_t(1) << unsigned(sizeClass));
    if (size > m_values.capacity()) {
        m_values.reserve(size + size / 4); // less than the vector would
    }
    m_values.resize(size);
    return quint32(place);
}

void PostingLists::release(const PostingList &list)
{
    if (list.count > 1) {
        m_free.at(size_t(sizeClassOf(list.count))).push_back(list.place);
    }
}

void PostingLists::assign(PostingList *list, const std::vector<quint32> &values)
{
    release(*list);
    list->count = quint32(values.size());
    if (values.size() == 1) {
        list->place = values.front();
    } else if (!values.empty()) {
        list->place = allocate(sizeClassOf(list->count));
        std::copy(values.cbegin(), values.cend(), m_values.begin() + list->place);
    }
}
