// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"

#include "commands.h"

#include <cstdio>

namespace
{
const QString s_help = QStringLiteral("help");
const QString s_format = QStringLiteral("format");

QString mistakeIn(const QCommandLineParser &parser, const CommandSyntax &syntax)
{
    if (!syntax.formats.contains(parser.value(s_format))) {
        return QStringLiteral("--format is one of %1").arg(syntax.formats.join(QLatin1String(", ")));
    }
    if (parser.positionalArguments().size() != syntax.argumentCount) {
        return QStringLiteral("%1 arguments are needed, %2 are given")
            .arg(syntax.argumentCount)
            .arg(parser.positionalArguments().size());
    }
    return {};
}
}

std::optional<int> parseCommandLine(QCommandLineParser *parser, const CommandSyntax &syntax,
                                    const QStringList &arguments)
{
    parser->addOption(QCommandLineOption(s_help));
    parser->addOption({s_format, {}, QStringLiteral("FORMAT"), syntax.formats.first()});
    const bool isParsed = parser->parse(QStringList{QLatin1String(syntax.name)} + arguments);
    if (isParsed && parser->isSet(s_help)) {
        std::fputs(syntax.help, stdout);
        return Commands::Success;
    }
    const QString mistake = isParsed ? mistakeIn(*parser, syntax) : parser->errorText();
    if (!mistake.isEmpty()) {
        std::fprintf(stderr, "velka-settings %s: %s\nvelka-settings %s --help tells more.\n", syntax.name,
                     qUtf8Printable(mistake), syntax.name);
        return Commands::CannotRun;
    }
    return {};
}

QString formatOf(const QCommandLineParser &parser)
{
    return parser.value(s_format);
}
