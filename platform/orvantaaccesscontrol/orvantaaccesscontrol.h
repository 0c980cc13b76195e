// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef ORVANTAACCESSCONTROL_H
#define ORVANTAACCESSCONTROL_H

#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Non-zero when the user belongs to the group, also when it is the user's primary group. */
__attribute__((visibility("default"))) int orvanta_access_control_hasgroup(uid_t uid, const char *group);

#ifdef __cplusplus
}
#endif

#endif
