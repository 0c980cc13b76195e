// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QCommandLineParser>

#include <climits>
#include <optional>

/// The arguments that a command takes. Each command has --help and --version; its other options are the caller's.
struct CommandSyntax {
    static constexpr int Unlimited = INT_MAX;

    const char *name;
    const char *help; ///< fits a screen
    QStringList formats; ///< the values of --format, the default first; without any there is no such option
    int minArguments;
    int maxArguments;
    const char *argumentNames; ///< "OLD and NEW"
};

/// Parses the arguments after the name of a command. Returns the exit status when there is nothing left to do: the
/// help or the version was requested, or the command line is wrong.
std::optional<int> parseCommandLine(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments);
QString formatOf(const QCommandLineParser &parser);

/// Prints the version of the program. Returns the exit status.
int printVersion();

/// Prints @p mistake of the command line. Returns the exit status.
int refuse(const CommandSyntax &syntax, const QString &mistake);
