// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Returns non-zero when the user belongs to the group, which may be the primary group. */
__attribute__((visibility("default"))) int orvanta_access_control_hasgroup(uid_t uid, const char *group);

#ifdef __cplusplus
}
#endif
