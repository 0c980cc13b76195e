// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/// Marks what other programs may use of the library. VELKASETTINGS_LIBRARY is defined while the library is compiled.
#if defined(VELKASETTINGS_LIBRARY)
#define VELKASETTINGS_EXPORT Q_DECL_EXPORT
#else
#define VELKASETTINGS_EXPORT Q_DECL_IMPORT
#endif

/// Marks what only the modules above the library use, which are built and installed with it. It is not a stable API: its
/// headers are not installed, and its symbols may change or disappear in any release.
#define VELKASETTINGS_PRIVATE_EXPORT VELKASETTINGS_EXPORT
