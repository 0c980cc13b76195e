// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/// Marks what other programs may use of the search. VELKASETTINGSSEARCH_LIBRARY is defined while it is compiled.
#if defined(VELKASETTINGSSEARCH_LIBRARY)
#define VELKASETTINGSSEARCH_EXPORT Q_DECL_EXPORT
#else
#define VELKASETTINGSSEARCH_EXPORT Q_DECL_IMPORT
#endif
