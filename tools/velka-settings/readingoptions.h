// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "commandline.h"
#include "inspection.h"

#include <memory>

/// The options that say what a command reads, and for whom.
namespace ReadingOptions
{
/// Those alone that say for whom.
void addUserTo(QCommandLineParser *parser);

/// The places below @p directory when it is the root of a system or a package. Otherwise it is a directory of
/// registration files, with the catalogs and the blacklist of this system. Nothing when it does not exist.
std::optional<EntrySources> sourcesIn(const QString &directory);

/// Parses the command line of a command that takes all of them, and reads what it asks for. Null, and @p exitCode, when
/// there is nothing left to do.
std::unique_ptr<Inspection> inspect(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments, int *exitCode);
/// What the options of @p parser ask of @p directory. Null, with a message on standard error, when it cannot be read.
std::unique_ptr<Inspection> inspect(const QCommandLineParser &parser, const QString &directory);
}
