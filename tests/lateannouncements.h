// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/**
 * During its lifetime, dconf announces writes of this process only when the event loop runs, as some implementations of
 * MGConfItem do. The values can be read at once.
 */
class LateAnnouncements
{
public:
    LateAnnouncements();
    ~LateAnnouncements();
    LateAnnouncements(const LateAnnouncements &) = delete;
    LateAnnouncements &operator=(const LateAnnouncements &) = delete;
};
