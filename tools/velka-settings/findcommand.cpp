// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "printable.h"
#include "problems.h"
#include "readingoptions.h"
#include "search/settingssearch.h"
#include "terminal.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <iostream>
#include <string>

namespace
{
const char s_findHelp[] = R"(Usage: velka-settings find [OPTION]... WORD...
       velka-settings find [OPTION]... -

Prints the settings entries that a search for the words finds, the best one
first: those with all words; else with a few typos; else with most words. With
"-", reads queries from standard input, one a line, and prints a line with a
JSON array of results for each.

  --root DIR      searches the registration files in DIR, not those of the system
  --translations DIR
                  takes the catalogs (*.qm) of the titles from DIR
  --uid N         reads as the user N
  --locale L      uses the titles of the locale L, such as fi_FI
  --masked PATH   masks PATH, in addition to the key maskedSettings; repeatable
  --strict        only entries with all words, without typos
  --format text   for people; in colours on a terminal unless NO_COLOR is set
  --format json   location, title, breadcrumb, kind and score of each result
  -h, --help      prints this; --version prints the version

Problems with files are printed on standard error.
Exit status: 0; 1 when nothing is found; 2 when there is nothing to read.
)";

QJsonObject toJson(const SearchResult &result)
{
    return {{QStringLiteral("location"), result.location},
            {QStringLiteral("title"), result.title},
            {QStringLiteral("breadcrumb"), QJsonArray::fromStringList(result.breadcrumb)},
            {QStringLiteral("kind"), result.kind},
            {QStringLiteral("score"), result.score}};
}

QJsonArray toJson(const QVector<SearchResult> &results)
{
    QJsonArray array;
    for (const SearchResult &result : results) {
        array.append(toJson(result));
    }
    return array;
}

void printText(const QVector<SearchResult> &results)
{
    const Terminal out(stdout);
    for (const SearchResult &result : results) {
        const QString titles = (result.breadcrumb + QStringList{result.title}).join(QStringLiteral(" › "));
        out.writeLine(
            QStringLiteral("%1  %2").arg(out.strong(printable(titles)), out.faint(printable(result.location))));
    }
}

/// Answers each line of the standard input at once.
void answerLines(SettingsSearch *search, SearchQuery query)
{
    std::string line;
    while (std::getline(std::cin, line)) {
        query.text = QString::fromStdString(line);
        const QByteArray json = QJsonDocument(toJson(search->find(query))).toJson(QJsonDocument::Compact);
        const QByteArray answer = printableJson(json).trimmed() + '\n';
        std::fwrite(answer.constData(), 1, size_t(answer.size()), stdout);
        std::fflush(stdout);
    }
}
}

int Commands::find(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("strict"), {}});
    const CommandSyntax syntax{
        "find", s_findHelp, {QStringLiteral("text"), QStringLiteral("json")}, 1, CommandSyntax::Unlimited, "WORD"};
    int exitStatus = Success;
    const std::unique_ptr<Inspection> inspection = ReadingOptions::inspect(&parser, syntax, arguments,
                                                                           &exitStatus);
    if (!inspection) {
        return exitStatus;
    }
    printProblems(inspection->record());
    SettingsSearch search(inspection->root());
    search.finish();
    SearchQuery query{parser.positionalArguments().join(QLatin1Char(' '))};
    query.isStrict = parser.isSet(QStringLiteral("strict"));
    if (query.text == QLatin1String("-")) {
        answerLines(&search, query);
        return Success;
    }
    const QVector<SearchResult> results = search.find(query);
    if (formatOf(parser) == QLatin1String("json")) {
        Terminal(stdout).writeJson({{QStringLiteral("results"), toJson(results)}});
    } else {
        printText(results);
    }
    return results.isEmpty() ? Findings : Success;
}
