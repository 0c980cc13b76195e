// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// Resources of a process that are limited.
struct Resources {
    /// Measures this process. Returns free memory to the system first, so that the caches of malloc() do not count.
    static Resources measured();

    /// Describes the resources that are larger than in @p before, empty if there are none.
    QString growthSince(const Resources &before) const;
    QString toString() const;

    int residentKiB = 0;
    int allocatedKiB = 0; ///< the part of these that is in use
    int descriptors = 0;
    int fileWatches = 0;
    int matchRules = 0; ///< those of this process on both buses
    int dconfWatches = 0; ///< the match rules of dconf
    QMap<QByteArray, int> objects; ///< those of this thread, by class
    int runningTimers = 0;
};

/// Starts to count objects. Must be called before any QObject is created.
void followObjects();
/// Returns the number of running timers of this thread.
int runningTimers();
