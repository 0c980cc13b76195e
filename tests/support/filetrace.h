// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// This process's, for a program that runs under strace.
QProcessEnvironment tracedEnvironment();
/// Runs this test program with @p arguments under strace. Returns the paths that start with @p start and that the
/// run asked the kernel about, in the order of their first use. Ends the test when the run fails.
QStringList pathsUsedBy(const QStringList &arguments, const QString &start);
