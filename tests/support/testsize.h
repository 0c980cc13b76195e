// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/// Returns the number of steps of a random test: @p full with `scripts/test --all`, else a tenth of it. With the
/// sanitizers, which are slow, it is a fiftieth.
int testSize(int full);
