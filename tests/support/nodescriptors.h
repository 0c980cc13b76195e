// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

#include <sys/resource.h>
#include <unistd.h>

/// While this lives, the process gets no further descriptors.
class NoDescriptors
{
public:
    NoDescriptors()
    {
        const int next = dup(0);
        close(next);
        if (next < 0 || getrlimit(RLIMIT_NOFILE, &m_before) != 0) {
            qFatal("Can't read the limit of descriptors");
        }
        // The next descriptor exceeds the limit.
        const rlimit none = {rlim_t(next), m_before.rlim_max};
        set(none);
    }
    ~NoDescriptors()
    {
        set(m_before);
    }
    NoDescriptors(const NoDescriptors &) = delete;
    NoDescriptors &operator=(const NoDescriptors &) = delete;

private:
    static void set(const rlimit &limit)
    {
        if (setrlimit(RLIMIT_NOFILE, &limit) != 0) {
            qFatal("Can't set the limit of descriptors");
        }
    }

    rlimit m_before = {};
};
