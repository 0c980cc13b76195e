// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "commandline.h"
#include "inspection.h"

#include <memory>

/// The options that select the tree that a command reads.
namespace ReadingOptions
{
/// Adds only the options that select the user and the masked entries.
void addUserTo(QCommandLineParser *parser);

/// Returns the places below @p directory when it is the root of a system or a package. Otherwise it is a directory of
/// registration files, with the catalogs and the blacklist of this system. Returns nothing when it does not exist.
std::optional<EntrySources> sourcesIn(const QString &directory);

/// Parses the command line of a command that has all of these options, and loads the tree. Returns null, and sets
/// @p exitStatus, when there is nothing left to do.
std::unique_ptr<Inspection> inspect(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments, int *exitStatus);
/// Loads the tree of @p directory with the options of @p parser. Returns null, with a message on standard error, when
/// the directory cannot be read.
std::unique_ptr<Inspection> inspect(const QCommandLineParser &parser, const QString &directory);
}
