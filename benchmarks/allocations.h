// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/// How often this process has asked malloc(), calloc() or realloc() for memory. A program that links this has them
/// replaced by ones that count.
qint64 allocationCount();
