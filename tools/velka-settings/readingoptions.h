// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "inspection.h"

#include <QCommandLineParser>

#include <memory>

/// The options that say what a command reads, and for whom.
namespace ReadingOptions
{
void addTo(QCommandLineParser *parser);
/// Those alone that say for whom.
void addUserTo(QCommandLineParser *parser);

/// The places below @p directory when it is the root of a system or a package. Otherwise it is a directory of
/// registration files, with the catalogs and the blacklist of this system. Nothing when it does not exist.
std::optional<EntrySources> sourcesIn(const QString &directory);

/// What the options of @p parser ask for. Null, with a message on standard error, when it cannot be read.
std::unique_ptr<Inspection> inspect(const QCommandLineParser &parser);
/// The same for @p directory in the place of --root.
std::unique_ptr<Inspection> inspect(const QCommandLineParser &parser, const QString &directory);
}
