// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// Returns the environment of this process, changed for a program that runs under strace.
QProcessEnvironment tracedEnvironment();
/// Runs this test program with @p arguments under strace. Returns the paths that begin with @p start and occur in
/// system calls, in the order of their first use. Ends the test if the run fails.
QStringList pathsUsedBy(const QStringList &arguments, const QString &start);
