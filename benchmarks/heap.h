// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <functional>

/// The bytes of heap that are in use after @p work and were not before it, malloc's own overhead included.
double heapGrowth(const std::function<void()> &work);
