// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"

#include "commands.h"
#include "common/printable.h"

#include <cstdio>

namespace
{
const QString s_help = QStringLiteral("help");
const QString s_format = QStringLiteral("format");

QString mistakeIn(const QCommandLineParser &parser, const CommandSyntax &syntax)
{
    if (!syntax.formats.isEmpty() && !syntax.formats.contains(parser.value(s_format))) {
        return QStringLiteral("--format is one of %1").arg(syntax.formats.join(QLatin1String(", ")));
    }
    const int given = parser.positionalArguments().size();
    if (given < syntax.minArguments) {
        return QStringLiteral("an argument is missing");
    }
    return given > syntax.maxArguments ? QStringLiteral("there are too many arguments") : QString();
}
}

std::optional<int> parseCommandLine(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments)
{
    parser->addOption(QCommandLineOption(s_help));
    if (!syntax.formats.isEmpty()) {
        parser->addOption({s_format, {}, QStringLiteral("FORMAT"), syntax.formats.first()});
    }
    const bool isParsed = parser->parse(QStringList{QLatin1String(syntax.name)} + arguments);
    if (isParsed && parser->isSet(s_help)) {
        std::fputs(syntax.help, stdout);
        return Commands::Success;
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

int refuse(const CommandSyntax &syntax, const QString &mistake)
{
    std::fprintf(stderr, "velka-settings %s: %s\nSee velka-settings %s --help.\n", syntax.name,
                 qUtf8Printable(printable(mistake)), syntax.name);
    return Commands::CannotRun;
}
