// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nodescriptors.h"

#include <fcntl.h>
#include <unistd.h>

NoDescriptors::NoDescriptors()
{
    const int free = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (free < 0 || getrlimit(RLIMIT_NOFILE, &m_limit) != 0) {
        qFatal("There is no descriptor to begin with");
    }
    // All below the first free one are in use: lowered to it, the limit leaves none.
    close(free);
    const rlimit lowered{rlim_t(free), m_limit.rlim_max};
    if (setrlimit(RLIMIT_NOFILE, &lowered) != 0) {
        qFatal("The limit of descriptors cannot be lowered");
    }
}

NoDescriptors::~NoDescriptors()
{
    setrlimit(RLIMIT_NOFILE, &m_limit);
}
