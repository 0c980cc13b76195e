// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "problems.h"
#include "readingoptions.h"
#include "registry/treeitem.h"
#include "terminal.h"
#include "treelisting.h"

#include "printable.h"

#include <QJsonArray>
#include <QJsonObject>

namespace
{
constexpr int MaxIndent = 100; // levels

const char s_treeHelp[] = R"(Usage: velka-settings tree [OPTION]... [FILE|DIR]...

Prints the tree of settings entries that a program loads when it starts now, in
the order of its pages: path, title, type, "order" and the declaring file. Reads
this system, or files or a directory: of registration files, with entries/ in
it, or the root of an image or unpacked package. --root DIR is the same as DIR.

  --translations DIR
                  takes the catalogs (*.qm) of the titles from DIR
  --uid N         reads as the user N
  --locale L      uses the titles of the locale L, such as fi_FI
  --masked PATH   masks PATH, in addition to the key maskedSettings; repeatable
  --format text   for people; in colours on a terminal unless NO_COLOR is set
  --format json   all properties of each entry that a page can read
  --format paths  only the paths
  -h, --help      prints this; --version prints the version

Problems with files are printed on standard error.
Exit status: 0; 2 when there is nothing to read.
)";

void printTree(TreeItem *root)
{
    const Terminal out(stdout);
    const QVector<TreeListing::ListedItem> listed = TreeListing::itemsOf(root);
    for (const auto &[item, depth] : listed) {
        const QString indent(2 * (qMin(depth, MaxIndent) - 1), QLatin1Char(' '));
        const QString name = printable(item->name());
        const QString title = printable(item->title());
        const QString kind = QStringLiteral("%1, %2").arg(printable(item->type())).arg(item->order());
        const QString origin = item->isDeclared() ? out.faint(printable(item->fromFile()))
                                                  : out.notable(QStringLiteral("not declared"));
        out.writeLine(QStringLiteral("%1%2  \"%3\"  (%4)  %5").arg(indent, out.strong(name), title, kind, origin));
    }
}

void printJson(TreeItem *root)
{
    QJsonArray entries;
    const QVector<TreeListing::ListedItem> listed = TreeListing::itemsOf(root);
    for (const auto &[item, depth] : listed) {
        entries.append(TreeListing::toJson(item));
    }
    Terminal(stdout).writeJson({{QStringLiteral("entries"), entries}});
}

/// Prints one path per line, except paths with line breaks and the like.
void printPaths(TreeItem *root)
{
    const Terminal out(stdout);
    const QVector<TreeListing::ListedItem> listed = TreeListing::itemsOf(root);
    for (const auto &[item, depth] : listed) {
        const QString path = TreeListing::pathOf(item);
        if (printable(path) == path) {
            out.writeLine(path);
        }
    }
}
}

int Commands::tree(const QStringList &arguments)
{
    QCommandLineParser parser;
    const CommandSyntax syntax{"tree",
                               s_treeHelp,
                               {QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("paths")},
                               0,
                               CommandSyntax::Unlimited,
                               "FILE or DIR"};
    int exitStatus = Success;
    const std::unique_ptr<Inspection> inspection = ReadingOptions::inspect(&parser, syntax, arguments, &exitStatus,
                                                                           ReadingOptions::ArgumentsAre::Files);
    if (!inspection) {
        return exitStatus;
    }
    printProblems(inspection->record());
    const QString format = formatOf(parser);
    if (format == QLatin1String("json")) {
        printJson(inspection->root());
    } else if (format == QLatin1String("paths")) {
        printPaths(inspection->root());
    } else {
        printTree(inspection->root());
    }
    return Success;
}
