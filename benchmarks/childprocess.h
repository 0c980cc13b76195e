// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// A program that is built beside this one.
QString siblingProgram(const QString &name);
/// The lines that @p program prints. It has to succeed.
QStringList linesOf(const QString &program, const QStringList &arguments);
/// The number that this program prints in a fresh process with @p arguments.
double numberOfChild(const QStringList &arguments);
