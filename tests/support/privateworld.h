// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QProcess>

/// Runs this test program again with --world @p name, and with the home, the runtime directory and the addresses of the
/// buses in @p directory. Returns true if it succeeds.
bool runInWorld(const QString &directory, const QString &name);

/// The main() of a test program. With --world it runs the slot of @p world that has the name of the world, otherwise
/// @p test.
int runTest(int argc, char *argv[], QObject *test, QObject *world);

/// The session bus of a world. The destructor ends it.
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    void kill();

private:
    QProcess m_daemon;
};
