// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// The commands of velka-settings. Each takes the arguments after its name and returns the exit status.
namespace Commands
{
constexpr int Success = 0;
constexpr int Findings = 1;
constexpr int CannotRun = 2;

int check(const QStringList &arguments);
int diff(const QStringList &arguments);
int find(const QStringList &arguments);
int open(const QStringList &arguments);
int install(const QStringList &arguments);
int preview(const QStringList &arguments);
int schema(const QStringList &arguments);
int show(const QStringList &arguments);
int translate(const QStringList &arguments);
int tree(const QStringList &arguments);
int why(const QStringList &arguments);
}
