// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef PRIVATEWORLD_H
#define PRIVATEWORLD_H

#include <QObject>
#include <QProcess>

/// Runs this test program once more in @p directory, with --world @p name and with a home, a runtime directory and bus
/// addresses that lie in that directory. True when it succeeds.
bool runInWorld(const QString &directory, const QString &name);

/// main() of a test program: runs @p world, an object whose slots are worlds, when it is told to and else @p test.
int runTest(int argc, char *argv[], QObject *test, QObject *world);

/// The session bus of a world. It ends with this object at the latest.
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

#endif
