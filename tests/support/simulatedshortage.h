// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/// While it lives, this process can open no file or directory, and gets no inotify instance. The limit of the kernel is
/// not lowered: the sanitizers need descriptors.
class SimulatedShortage
{
public:
    SimulatedShortage();
    ~SimulatedShortage();
    Q_DISABLE_COPY(SimulatedShortage)
};
