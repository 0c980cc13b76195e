// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

#include <functional>

/// Does @p work. Its instructions are what instructionsOf() counts; there may be one call in a process.
void counted(const std::function<void()> &work);
/// How many instructions this program executes in counted() when it runs with @p arguments, under valgrind: the same
/// on every machine with the same libraries, whatever else it does.
double instructionsOf(const QStringList &arguments);
