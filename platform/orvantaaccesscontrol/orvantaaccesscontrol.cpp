// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "orvantaaccesscontrol.h"

#include <grp.h>
#include <pwd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <vector>

namespace
{
/// Calls one of the re-entrant look-up functions, which fill a buffer of the caller, with a large enough buffer.
template<typename LookUp>
void withBuffer(LookUp lookUp)
{
    std::vector<char> buffer(1024);
    while (lookUp(buffer) == ERANGE) {
        buffer.resize(buffer.size() * 2);
    }
}

struct User {
    std::string name;
    gid_t primaryGroup;
};

std::optional<User> findUser(uid_t uid)
{
    std::optional<User> user;
    withBuffer([&](std::vector<char> &buffer) {
        passwd entry;
        passwd *found = nullptr;
        const int error = getpwuid_r(uid, &entry, buffer.data(), buffer.size(), &found);
        if (found) {
            user = User{found->pw_name, found->pw_gid};
        }
        return error;
    });
    return user;
}

std::optional<gid_t> findGroup(const char *name)
{
    std::optional<gid_t> group;
    withBuffer([&](std::vector<char> &buffer) {
        ::group entry;
        ::group *found = nullptr;
        const int error = getgrnam_r(name, &entry, buffer.data(), buffer.size(), &found);
        if (found) {
            group = found->gr_gid;
        }
        return error;
    });
    return group;
}

std::vector<gid_t> groupsOf(const User &user)
{
    std::vector<gid_t> groups(32);
    int count = int(groups.size());
    while (getgrouplist(user.name.c_str(), user.primaryGroup, groups.data(), &count) < 0) {
        // The returned count can be too small by the time of the next call.
        groups.resize(std::max(size_t(count), groups.size() * 2));
        count = int(groups.size());
    }
    groups.resize(count);
    return groups;
}
}

int orvanta_access_control_hasgroup(uid_t uid, const char *group)
{
    if (!group || !*group) {
        return 0;
    }
    const std::optional<User> user = findUser(uid);
    const std::optional<gid_t> gid = findGroup(group);
    if (!user || !gid) {
        return 0;
    }
    const std::vector<gid_t> groups = groupsOf(*user);
    return std::find(groups.cbegin(), groups.cend(), *gid) != groups.cend();
}
