// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <vector>

/// Uses up the descriptors of this process while it lives.
class NoDescriptors
{
public:
    NoDescriptors();
    ~NoDescriptors();
    NoDescriptors(const NoDescriptors &) = delete;
    NoDescriptors &operator=(const NoDescriptors &) = delete;

private:
    std::vector<int> m_descriptors;
    unsigned long m_limit = 0; ///< of this process before
};
