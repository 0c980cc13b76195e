// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"

#include "commands.h"
#include "printable.h"

#include <cstdio>

namespace
{
const QString s_help = QStringLiteral("help");
const QString s_version = QStringLiteral("version");
const QString s_format = QStringLiteral("format");

QString numberOfArguments(int number, const char *one, const char *many)
{
    return number == 1 ? QStringLiteral("1 argument ") + QLatin1String(one)
                       : QStringLiteral("%1 arguments ").arg(number) + QLatin1String(many);
}

QString mistakeIn(const QCommandLineParser &parser, const CommandSyntax &syntax)
{
    if (!syntax.formats.isEmpty() && !syntax.formats.contains(parser.value(s_format))) {
        return QStringLiteral("--format is one of %1").arg(syntax.formats.join(QLatin1String(", ")));
    }
    const int given = parser.positionalArguments().size();
    if (given < syntax.minArguments) {
        return numberOfArguments(syntax.minArguments, "is", "are") + QStringLiteral(" needed: ")
               + QLatin1String(syntax.argumentNames);
    }
    if (given > syntax.maxArguments) {
        return syntax.maxArguments == 0
                   ? QStringLiteral("no argument is possible, but \"%1\" is given")
                         .arg(printable(parser.positionalArguments().constFirst()))
                   : QStringLiteral("only ") + numberOfArguments(syntax.maxArguments, "is", "are")
                         + QStringLiteral(" possible: ") + QLatin1String(syntax.argumentNames);
    }
    return {};
}
}

std::optional<int> parseCommandLine(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments)
{
    parser->addOptions(
        {QCommandLineOption(QStringList{QStringLiteral("h"), s_help}), QCommandLineOption(s_version)});
    if (!syntax.formats.isEmpty()) {
        parser->addOption({s_format, {}, QStringLiteral("FORMAT"), syntax.formats.first()});
    }
    const bool isParsed = parser->parse(QStringList{QLatin1String(syntax.name)} + arguments);
    if (isParsed && parser->isSet(s_help)) {
        std::fputs(syntax.help, stdout);
        return Commands::Success;
    }
    if (isParsed && parser->isSet(s_version)) {
        return printVersion();
    }
    const QString mistake = isParsed ? mistakeIn(*parser, syntax) : parser->errorText();
    if (!mistake.isEmpty()) {
        return refuse(syntax, mistake);
    }
    return {};
}

QString formatOf(const QCommandLineParser &parser)
{
    return parser.value(s_format);
}

int printVersion()
{
    std::puts("velka-settings " VELKA_VERSION);
    return Commands::Success;
}

int refuse(const CommandSyntax &syntax, const QString &mistake)
{
    std::fprintf(stderr, "velka-settings %s: %s\nSee velka-settings %s --help.\n", syntax.name,
                 qUtf8Printable(printable(mistake)), syntax.name);
    return Commands::CannotRun;
}
