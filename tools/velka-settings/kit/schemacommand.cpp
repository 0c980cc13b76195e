// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "hostschema.h"
#include "schema.h"

#include <QFileInfo>
#include <QJsonDocument>

#include <cstdio>

namespace
{
const char s_schemaHelp[] = R"(Usage: velka-settings schema [OPTION]...

Prints the JSON Schema of registration files for editors, with the types, params
and places that the Settings application of this system, the host, shows. These
are in its vocabulary, /usr/share/velka-settings/vocabulary.json. Without one,
the schema is that which is installed.

  --vocabulary FILE  uses another vocabulary
  -h, --help         prints this; --version prints the version

Exit status: 0; 2 when the vocabulary cannot be used.
)";

const CommandSyntax s_schemaSyntax{"schema", s_schemaHelp, {}, 0, 0, ""};
}

int Commands::schema(const QStringList &arguments)
{
    const QCommandLineOption vocabularyFile(QStringLiteral("vocabulary"), {}, QStringLiteral("FILE"));
    QCommandLineParser parser;
    parser.addOption(vocabularyFile);
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, s_schemaSyntax, arguments)) {
        return *exitStatus;
    }
    const bool isNamed = parser.isSet(vocabularyFile);
    const QString path = isNamed ? parser.value(vocabularyFile) : HostVocabulary::systemPath();
    QJsonObject schema = Check::registrationSchema();
    if (isNamed || QFileInfo::exists(path)) {
        QString problem;
        const std::optional<HostVocabulary> vocabulary = HostVocabulary::read(path, &problem);
        if (!vocabulary) {
            return refuse(s_schemaSyntax, problem);
        }
        schema = hostSchema(schema, *vocabulary);
    }
    std::fputs(QJsonDocument(schema).toJson().constData(), stdout);
    return Success;
}
