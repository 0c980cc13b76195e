// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "printable.h"
#include "readingoptions.h"
#include "registry/registrationfile.h"
#include "registry/treeitem.h"
#include "terminal.h"
#include "treelisting.h"
#include "values.h"

namespace
{
const char s_help[] = R"(Usage: velka-settings show [OPTION]... PATH

Prints the entry at PATH in full, as a page sees it. Slashes that are doubled
or stand at the ends of PATH do not matter.

  --root DIR      the tree of DIR: the root of a system or of an unpacked
                  package, or a directory of registration files
  --uid N         for the user N instead of the one who asks
  --locale L      with the titles of the locale L, such as fi_FI
  --masked PATH   as if the key of hidden entries held PATH, too; repeatable
  --format text   for people; in colours on a terminal unless NO_COLOR is set
  --format json   for programs
  --help          prints this

Exit status: 0; 1 when there is nothing at PATH; 2 when it cannot be told.
)";

void printText(TreeItem *item)
{
    const Terminal out(stdout);
    const auto line = [&out](const char *name, const QString &value) {
        const QString label = QStringLiteral("%1:").arg(QLatin1String(name)).leftJustified(14);
        out.writeLine(out.strong(label) + printable(value));
    };
    line("path", TreeListing::pathOf(item));
    line("title", item->title());
    line("short title", item->shortTitle());
    line("type", item->type());
    line("icon", item->icon());
    line("control icon", item->controlIcon());
    line("order", QString::number(item->order()));
    line("children", QString::number(item->count()));
    line("file", item->isDeclared() ? item->fromFile() : QStringLiteral("none declares it"));
    if (!item->isDeclared()) {
        return;
    }
    out.writeLine(out.strong(QStringLiteral("data:")));
    const QJsonObject data = QJsonObject::fromVariantMap(item->data());
    for (auto it = data.constBegin(); it != data.constEnd(); ++it) {
        out.writeLine(QStringLiteral("  %1: %2").arg(printable(it.key()), Values::toText(it.value())));
    }
}
}

int Commands::show(const QStringList &arguments)
{
    QCommandLineParser parser;
    const CommandSyntax syntax{"show", s_help, {QStringLiteral("text"), QStringLiteral("json")}, 1, 1};
    int exitCode = Success;
    const std::unique_ptr<Inspection> inspection = ReadingOptions::inspect(&parser, syntax, arguments, &exitCode);
    if (!inspection) {
        return exitCode;
    }
    const QStringList names = splitPath(parser.positionalArguments().constFirst());
    TreeItem *item = names.isEmpty() ? nullptr : inspection->root()->lookup(names);
    if (!item) {
        const QString path = printable(names.join(QLatin1Char('/')));
        std::fprintf(stderr, "There is nothing at %s. \"velka-settings why %s\" tells the reason.\n",
                     qUtf8Printable(path), qUtf8Printable(path));
        return Findings;
    }
    if (formatOf(parser) == QLatin1String("json")) {
        Terminal(stdout).writeJson(TreeListing::toJson(item));
    } else {
        printText(item);
    }
    return Success;
}
