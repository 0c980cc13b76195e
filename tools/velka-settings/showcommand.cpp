// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "readingoptions.h"
#include "registry/registrationfile.h"
#include "registry/treeitem.h"
#include "terminal.h"
#include "treelisting.h"
#include "values.h"

#include "printable.h"

namespace
{
const char s_showHelp[] = R"(Usage: velka-settings show [OPTION]... PATH

Prints all properties of the entry at PATH that a page can read. Leading,
trailing and doubled slashes in PATH are ignored.

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

Exit status: 0; 1 when there is nothing at PATH; 2 when the tree cannot be
read.
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
    const CommandSyntax syntax{"show", s_showHelp, {QStringLiteral("text"), QStringLiteral("json")}, 1, 1, "PATH"};
    int exitStatus = Success;
    const std::unique_ptr<Inspection> inspection = ReadingOptions::inspect(&parser, syntax, arguments,
                                                                           &exitStatus);
    if (!inspection) {
        return exitStatus;
    }
    const QStringList names = splitPath(parser.positionalArguments().constFirst());
    if (names.isEmpty()) {
        return refuse(syntax, QStringLiteral("the path is empty"));
    }
    TreeItem *item = inspection->root()->lookup(names);
    if (!item) {
        const QString path = printable(names.join(QLatin1Char('/')));
        std::fprintf(stderr, "There is nothing at %s. For the reason, run: velka-settings why %s\n",
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
