// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <dlfcn.h>

/// Returns the library's own function that a test has replaced by one with the same name and type.
template<typename Function>
Function *nextFunction(Function *, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}
