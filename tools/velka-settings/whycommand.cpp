// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "readingoptions.h"
#include "registry/registrationfile.h"
#include "terminal.h"
#include "whyreport.h"

namespace
{
const char s_whyHelp[] = R"(Usage: velka-settings why [OPTION]... PATH

Prints whether the entry at PATH is in the tree of a program that starts now,
with one reason if it is not; then every declaration of PATH with its status,
the source of the title, and which kinds of favourites admit the entry.

  --root DIR      reads DIR: registration files, a directory with entries/ in
                  it, or the root of an image or unpacked package; or a file
  --translations DIR
                  takes the catalogs (*.qm) of the titles from DIR
  --uid N         reads as the user N
  --locale L      uses the titles of the locale L, such as fi_FI
  --masked PATH   masks PATH, in addition to the key maskedSettings; repeatable
  --format text   for people; in colours on a terminal unless NO_COLOR is set
  --format json   for programs
  -h, --help      prints this; --version prints the version

Exit status: 0; 1 when the entry is not in the tree; 2 when the tree cannot be
read.
)";
}

int Commands::why(const QStringList &arguments)
{
    QCommandLineParser parser;
    const CommandSyntax syntax{"why", s_whyHelp, {QStringLiteral("text"), QStringLiteral("json")}, 1, 1, "PATH"};
    int exitStatus = Success;
    const std::unique_ptr<Inspection> inspection = ReadingOptions::inspect(&parser, syntax, arguments,
                                                                           &exitStatus);
    if (!inspection) {
        return exitStatus;
    }
    const QString node = splitPath(parser.positionalArguments().constFirst()).join(QLatin1Char('/'));
    if (node.isEmpty()) {
        return refuse(syntax, QStringLiteral("the path is empty"));
    }
    const WhyReport report(*inspection, node);
    if (formatOf(parser) == QLatin1String("json")) {
        Terminal(stdout).writeJson(report.toJson());
    } else {
        report.print(Terminal(stdout));
    }
    return report.isPresent() ? Success : Findings;
}
