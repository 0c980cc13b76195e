// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// Returns the path of a program that is built beside this one.
QString siblingProgram(const QString &name);
/// Returns the lines that @p program prints. Ends this process if it fails.
QStringList linesOf(const QString &program, const QStringList &arguments);
/// Returns the number that this program prints in a fresh process with @p arguments.
double numberOfChild(const QStringList &arguments);
