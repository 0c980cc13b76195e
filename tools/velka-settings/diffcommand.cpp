// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "differenceformats.h"
#include "problems.h"
#include "readingoptions.h"
#include "terminal.h"

namespace
{
const char s_diffHelp[] = R"(Usage: velka-settings diff [OPTION]... OLD NEW

Prints which entries NEW adds to those of OLD, which it removes, and which keys
of the others it changes. Each is a registration file, a directory of them, a
directory with entries/ in it, or the root of an image or unpacked package. The
names of the files and nodes that no file declares are not compared.

  --translations DIR compares the shown titles, too, with the catalogs in DIR
  --locale L         compares the shown titles in the locale L, such as fi_FI
  --uid N            reads as the user N
  --masked PATH      masks PATH in both; repeatable
  --format text      for people; in colours on a terminal without NO_COLOR
  --format markdown  for a changelog or a review
  --format json      for programs
  -h, --help         prints this; --version prints the version

Problems with files are printed on standard error.
Exit status: 0; 1 when there are differences; 2 when there is nothing to read.
)";

/// Returns nothing when the directory cannot be read. The tree and its translators are deleted on return.
std::optional<EntrySnapshot> readSnapshot(const QCommandLineParser &parser, const QString &directory)
{
    const std::unique_ptr<Inspection> inspection = ReadingOptions::inspect(parser, QStringList(directory));
    if (!inspection) {
        return {};
    }
    printProblems(inspection->record());
    const bool withTitles = parser.isSet(QStringLiteral("translations")) || parser.isSet(QStringLiteral("locale"));
    return snapshotOf(inspection->root(), withTitles);
}

void print(const EntryDifference &difference, const QString &format)
{
    const Terminal out(stdout);
    if (format == QLatin1String("json")) {
        out.writeJson(DifferenceFormats::toJson(difference));
    } else if (format == QLatin1String("markdown")) {
        DifferenceFormats::printMarkdown(difference, out);
    } else {
        DifferenceFormats::printText(difference, out);
    }
}
}

int Commands::diff(const QStringList &arguments)
{
    QCommandLineParser parser;
    ReadingOptions::addTo(&parser);
    const CommandSyntax syntax{
        "diff", s_diffHelp, {QStringLiteral("text"), QStringLiteral("markdown"), QStringLiteral("json")},
        2,      2,          "OLD and NEW"};
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, syntax, arguments)) {
        return *exitStatus;
    }
    const QStringList directories = parser.positionalArguments();
    const std::optional<EntrySnapshot> before = readSnapshot(parser, directories.at(0));
    const std::optional<EntrySnapshot> after = readSnapshot(parser, directories.at(1));
    if (!before || !after) {
        return CannotRun;
    }
    const EntryDifference difference = differenceBetween(*before, *after);
    print(difference, formatOf(parser));
    return difference.isEmpty() ? Success : Findings;
}
