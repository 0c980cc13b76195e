// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "simulatedshortage.h"

#include <dirent.h>
#include <dlfcn.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>

namespace
{
std::atomic<bool> s_none{false};

template<typename Result, typename... Arguments>
Result callNext(const char *name, Result failure, Arguments... arguments)
{
    if (s_none) {
        errno = EMFILE;
        return failure;
    }
    return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}
}

// In the place of the C library's functions. The mode is there or not, and is passed on as it is.
extern "C" {
int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = va_arg(arguments, unsigned);
    va_end(arguments);
    return callNext("open", -1, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = va_arg(arguments, unsigned);
    va_end(arguments);
    return callNext("open64", -1, path, flags, mode);
}

DIR *opendir(const char *path)
{
    return callNext<DIR *>("opendir", nullptr, path);
}

int inotify_init1(int flags) noexcept
{
    return callNext("inotify_init1", -1, flags);
}
}

SimulatedShortage::SimulatedShortage()
{
    s_none = true;
}

SimulatedShortage::~SimulatedShortage()
{
    s_none = false;
}
