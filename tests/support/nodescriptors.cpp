// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nodescriptors.h"

#include <QtGlobal>

#include <sys/resource.h>
#include <unistd.h>

namespace
{
// More than the tests have open. With a limit below what it waits for, poll() fails.
constexpr rlim_t Limit = 256;

/// Sets the limit of this process and returns the one before.
rlim_t setLimit(rlim_t limit)
{
    rlimit limits = {};
    getrlimit(RLIMIT_NOFILE, &limits);
    const rlim_t before = limits.rlim_cur;
    limits.rlim_cur = limit;
    if (setrlimit(RLIMIT_NOFILE, &limits) != 0) {
        qFatal("Cannot limit the descriptors");
    }
    return before;
}
}

NoDescriptors::NoDescriptors()
    : m_limit(setLimit(Limit))
{
    for (int descriptor = dup(0); descriptor >= 0; descriptor = dup(0)) {
        m_descriptors.push_back(descriptor);
    }
}

NoDescriptors::~NoDescriptors()
{
    for (const int descriptor : m_descriptors) {
        close(descriptor);
    }
    setLimit(m_limit);
}
