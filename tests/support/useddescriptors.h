// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <vector>

/// Uses up the descriptors of this process while it lives.
class UsedDescriptors
{
public:
    UsedDescriptors();
    ~UsedDescriptors();
    UsedDescriptors(const UsedDescriptors &) = delete;
    UsedDescriptors &operator=(const UsedDescriptors &) = delete;

private:
    std::vector<int> m_descriptors;
    unsigned long m_limit = 0; ///< of this process before
};
