// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <functional>

/// Returns by how many bytes the used heap grows with @p work, malloc's own overhead included.
double heapGrowth(const std::function<void()> &work);
