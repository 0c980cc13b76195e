// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// What a process may run out of.
struct Resources {
    /// Returns free memory to the system first, so that what malloc() keeps for later does not count.
    static Resources measured();

    /// What of this is more than it was @p before, empty if nothing is.
    QString growthSince(const Resources &before) const;
    QString toString() const;

    int residentKiB = 0;
    int allocatedKiB = 0; ///< of these, what is in use and not between it
    int descriptors = 0;
    int fileWatches = 0;
    int matchRules = 0; ///< of this process on both buses
    int dconfWatches = 0; ///< those of the rules that dconf has set
    QMap<QByteArray, int> objects; ///< of this thread, by class
    int runningTimers = 0;
};

/// Before any QObject is made, so that all can be counted.
void followObjects();
/// How many timers run in this thread.
int runningTimers();
