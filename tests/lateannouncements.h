// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/**
 * While it lives, dconf announces what this process writes only when the event loop runs, as some implementations of
 * MGConfItem do. Values can be read at once all the same.
 */
class LateAnnouncements
{
public:
    LateAnnouncements();
    ~LateAnnouncements();
    LateAnnouncements(const LateAnnouncements &) = delete;
    LateAnnouncements &operator=(const LateAnnouncements &) = delete;
};
