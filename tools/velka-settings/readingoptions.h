// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "commandline.h"
#include "inspection.h"

#include <memory>

/// The options that select the tree that a command reads.
namespace ReadingOptions
{
enum class ArgumentsAre { Paths, Files };

/// Adds the options that select the user, the locale, the catalogs and the masked entries.
void addTo(QCommandLineParser *parser);

/// Parses the command line of a command that has these options and --root, and loads the tree: that of --root, of
/// the arguments if they are files, or of the system. Returns null, and sets @p exitStatus, when there is nothing left to do.
std::unique_ptr<Inspection> inspect(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments, int *exitStatus,
                                    ArgumentsAre meaning = ArgumentsAre::Paths);
/// Loads the tree of the files and directories @p named with the options of @p parser. Returns null, with a message on
/// standard error, when one of them cannot be read or there is nothing in it.
std::unique_ptr<Inspection> inspect(const QCommandLineParser &parser, const QStringList &named);
}
