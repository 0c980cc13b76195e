// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QCommandLineParser>

#include <optional>

/// What a command takes.
struct CommandSyntax {
    const char *name;
    const char *help; ///< fits a screen
    QStringList formats; ///< of --format, the first one is the default
    int argumentCount;
};

/// Parses what follows the name of a command, with --help and --format. Returns the exit code when there is nothing
/// left to do: the help was asked for, or the command line is wrong.
std::optional<int> parseCommandLine(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments);
QString formatOf(const QCommandLineParser &parser);
