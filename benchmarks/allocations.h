// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/// Returns how often this process has called malloc(), calloc() and realloc(). A program that links this file gets
/// versions of them that count.
qint64 allocationCount();
