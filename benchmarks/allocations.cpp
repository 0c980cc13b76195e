// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "allocations.h"

#include <atomic>
#include <cstddef>

namespace
{
std::atomic<qint64> s_count{0};
}

// glibc's own names of the functions that are replaced below
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t nmemb, std::size_t size);
void *__libc_realloc(void *ptr, std::size_t size);

Q_DECL_EXPORT void *malloc(std::size_t size)
{
    ++s_count;
    return __libc_malloc(size);
}

Q_DECL_EXPORT void *calloc(std::size_t nmemb, std::size_t size)
{
    ++s_count;
    return __libc_calloc(nmemb, size);
}

Q_DECL_EXPORT void *realloc(void *ptr, std::size_t size)
{
    ++s_count;
    return __libc_realloc(ptr, size);
}
}

qint64 allocationCount()
{
    return s_count;
}
