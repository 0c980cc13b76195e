// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "nearest.h"
#include "printable.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

#include <cstdio>

namespace
{
struct Command {
    const char *name;
    const char *summary;
    int (*run)(const QStringList &arguments);
};

const Command s_commands[] = {
    {"check", "reports mistakes in registration files", Commands::check},
    {"preview", "shows registration files in a Settings window", Commands::preview},
    {"tree", "prints the tree of entries of this system or of a directory", Commands::tree},
    {"show", "prints all properties of an entry", Commands::show},
    {"why", "explains why an entry is in the tree, or why it is not", Commands::why},
    {"find", "searches the entries for words", Commands::find},
    {"open", "shows an entry in the Settings application", Commands::open},
    {"diff", "prints what an update of a directory changes", Commands::diff},
    {"schema", "prints the schema of registration files for editors", Commands::schema},
    {"translate", "makes and updates translations of registration files", Commands::translate},
    {"install", "gives registration files names with a hash of their content", Commands::install},
};

QString suggestionFor(const QString &name)
{
    QStringList names;
    for (const Command &command : s_commands) {
        names.append(QLatin1String(command.name));
    }
    const QString meant = nearest(name, names);
    return meant.isEmpty() ? QString() : QStringLiteral(": did you mean \"%1\"?").arg(meant);
}

void printUsage(std::FILE *stream)
{
    std::fputs("Usage: velka-settings COMMAND [OPTION]... [ARGUMENT]...\n\nCommands:\n", stream);
    for (const Command &command : s_commands) {
        std::fprintf(stream, "  %-9s %s\n", command.name, command.summary);
    }
    std::fputs("\nFor the options of a command, run velka-settings COMMAND --help.\n", stream);
}
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty()) {
        printUsage(stderr);
        return Commands::CannotRun;
    }
    const QString name = arguments.takeFirst();
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        printUsage(stdout);
        return Commands::Success;
    }
    if (name == QLatin1String("--version")) {
        return printVersion();
    }
    const auto *const command = std::find_if(
        std::begin(s_commands), std::end(s_commands),
        [&](const Command &candidate) { return name == QLatin1String(candidate.name); });
    if (command == std::end(s_commands)) {
        std::fprintf(stderr, "velka-settings: there is no command \"%s\"%s\nSee velka-settings --help.\n",
                     qUtf8Printable(printable(name)), qUtf8Printable(suggestionFor(name)));
        return Commands::CannotRun;
    }
    return command->run(arguments);
}
