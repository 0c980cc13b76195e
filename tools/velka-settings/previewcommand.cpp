// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include <unistd.h>

namespace
{
const char s_previewHelp[] = R"(Usage: velka-settings preview [OPTION]... FILE|DIR...

Shows the entries of registration files as a Settings application does, and
reads a file again when it is saved. The machine's own settings are neither
read nor changed.

  --locale L             shows the texts of the locale L, such as fi_FI
  --translations DIR     takes translation catalogs (*.qm) from DIR; repeatable
  --mask PATH            masks the entry that is declared as PATH; repeatable
  --group GROUP          adds the user to GROUP; repeatable
  --phone, --wide        opens a phone-sized (the default) or a wide window
  --page PATH            opens the page of an entry
  --screenshot FILE.png  saves a picture and quits; needs no display
  --smoke-test           opens every page, and fails on any warning; needs no
                         display
  -h, --help             prints this; --version prints the version

Exit status: 0; 1 when a page or a picture fails; 2 when there is no preview.
)";

/// Returns the program that shows the preview, where it is installed or was built. Empty when there is none.
QString previewProgram()
{
    for (const char *place : {"/" VELKA_TO_PROGRAMS "/preview", "/../../demo/preview/preview"}) {
        QString path = QCoreApplication::applicationDirPath() + QLatin1String(place);
        if (QFileInfo(path).isExecutable()) {
            return path;
        }
    }
    return {};
}

/// Replaces this process by the program. Returns only when that fails.
void execute(const QStringList &command)
{
    std::vector<QByteArray> words;
    for (const QString &word : command) {
        words.push_back(QFile::encodeName(word));
    }
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    execv(pointers.front(), pointers.data());
}

/// Returns the command line in the one form that the program reads: each option followed by its value, then the files.
QStringList normalized(const QCommandLineParser &parser, const QStringList &flags, const QStringList &options)
{
    QStringList arguments;
    for (const QString &name : flags) {
        if (parser.isSet(name)) {
            arguments.append(QStringLiteral("--") + name);
        }
    }
    for (const QString &name : options) {
        const QStringList values = parser.values(name);
        for (const QString &value : values) {
            arguments += {QStringLiteral("--") + name, value};
        }
    }
    return arguments + QStringList{QStringLiteral("--")} + parser.positionalArguments();
}
}

int Commands::preview(const QStringList &arguments)
{
    const QStringList flags{QStringLiteral("phone"), QStringLiteral("wide"), QStringLiteral("smoke-test")};
    const QStringList options{QStringLiteral("locale"), QStringLiteral("translations"),
                              QStringLiteral("mask"),   QStringLiteral("group"),
                              QStringLiteral("page"),   QStringLiteral("screenshot")};
    QCommandLineParser parser;
    for (const QString &name : flags) {
        parser.addOption(QCommandLineOption(name));
    }
    for (const QString &name : options) {
        parser.addOption({name, {}, QStringLiteral("VALUE")});
    }
    const CommandSyntax syntax{"preview", s_previewHelp, {}, 1, CommandSyntax::Unlimited, "FILE or DIR"};
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, syntax, arguments)) {
        return *exitStatus;
    }
    const QString program = previewProgram();
    if (program.isEmpty()) {
        std::fputs("velka-settings: the preview is not installed\n", stderr);
        return CannotRun;
    }
    execute(QStringList{program} + normalized(parser, flags, options));
    std::fprintf(stderr, "velka-settings: cannot start %s: %s\n", qUtf8Printable(program), std::strerror(errno));
    return CannotRun;
}
