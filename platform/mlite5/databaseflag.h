// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/**
 * The byte in shared memory that dconf's service sets when it has written the user's database. It is set before the
 * change is announced on the bus, and is read without a system call.
 *
 * Databases of the administrator have no such byte. Their changes are only known when they are announced.
 */
class DatabaseFlag
{
public:
    DatabaseFlag() = default;
    ~DatabaseFlag();
    DatabaseFlag(const DatabaseFlag &) = delete;
    DatabaseFlag &operator=(const DatabaseFlag &) = delete;

    /// Returns a number that changes with each write. Without shared memory it changes with each call.
    quint64 generation();
    /// Returns whether dconf could open the database of generation(): descriptors and memory may be used up.
    bool canOpenDatabase() const;

private:
    void open();
    void close();

    volatile const quint8 *m_flag = nullptr;
    quint64 m_generation = 0;
    bool m_isShort = false; ///< of descriptors or memory
};
