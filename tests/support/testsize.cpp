// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "testsize.h"

#include <QtGlobal>

#ifdef VELKA_SANITIZE
constexpr int Share = 50;
#else
constexpr int Share = 10;
#endif

int testSize(int full)
{
    return qEnvironmentVariableIsSet("VELKA_FULL_TESTS") ? full : full / Share;
}
