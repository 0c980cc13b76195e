// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <dlfcn.h>

/// The library's own function behind the one of the same name and type that a test puts in its place.
template<typename Function>
Function *nextFunction(Function *, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}
