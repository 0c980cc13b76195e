// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checker.h"
#include "commandline.h"
#include "commands.h"
#include "common/constants.h"
#include "formats.h"
#include "progress.h"
#include "terminal.h"

#include <QFileInfo>

#include <algorithm>

#include <cstdio>

namespace
{
using namespace Check;

const char s_checkHelp[] = R"(Usage: velka-settings check [OPTION]... FILE|DIR...

Reports what the library would refuse, lose or misread in registration files
and favourites blacklists, and probable mistakes. Prints a line for each
finding: file:line:column: severity: text [tag].

  --explain TAG       explains the findings of a tag
  --list-tags         lists all tags
  --strict            treats warnings as errors in the exit status
  --override TAG=SEVERITY
                      treats a tag as an error, warning or note, or ignores it
                      (error, warning, note, ignore); repeatable
  --format FORMAT     text (the default), json, sarif or junit
  --translations DIR  looks for compiled catalogs in DIR instead of the system's
                      directory
  --help              prints this

Files in the same directory are checked together. With DIR, so are the files in
its subdirectory "entries". A file with the name favorites-blacklist.json is
checked as a favourites blacklist.

Exit status: 0; 1 when there are errors; 2 when the check could not be run.
)";

const CommandSyntax s_syntax{
    "check",
    s_checkHelp,
    {QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("sarif"), QStringLiteral("junit")},
    0, // some options need no argument
    CommandSyntax::Unlimited};

struct Options {
    QStringList arguments;
    QString translations;
    QString format;
    Severities severities;
    bool strict;
};

int explain(const QString &name)
{
    const std::optional<Tag> tag = findTag(name);
    if (!tag) {
        return refuse(s_syntax, QStringLiteral("there is no tag \"%1\"").arg(name));
    }
    const TagInfo &about = info(*tag);
    std::printf("%s (%s)\n%s.\n%s\n", about.name, severityName(about.severity), about.summary, about.explanation);
    return Commands::Success;
}

int listTags()
{
    for (const TagInfo &tag : tags()) {
        std::printf("%-24s %-8s %s\n", tag.name, severityName(tag.severity), tag.summary);
    }
    return Commands::Success;
}

/// Applies @p overrides to @p severities. Returns the mistake in @p overrides, if there is one.
QString readOverrides(const QStringList &overrides, Severities *severities)
{
    for (const QString &text : overrides) {
        const std::optional<Tag> tag = findTag(text.section(QLatin1Char('='), 0, 0));
        const std::optional<Severity> severity = findSeverity(text.section(QLatin1Char('='), 1));
        if (!tag || !severity) {
            return QStringLiteral("\"%1\" is not TAG=SEVERITY").arg(text);
        }
        severities->override(*tag, *severity);
    }
    return {};
}

QString problemWith(const Options &options)
{
    if (options.arguments.isEmpty()) {
        return QStringLiteral("an argument is missing");
    }
    for (const QString &argument : options.arguments) {
        const QFileInfo file(argument);
        if (!file.exists() && !file.isSymLink()) {
            return QStringLiteral("there is no \"%1\"").arg(argument);
        }
        if (file.isDir() && !file.isReadable()) {
            return QStringLiteral("\"%1\" cannot be read").arg(argument);
        }
    }
    return {};
}

Report check(const Options &options)
{
    Progress progress;
    const auto report = [&progress](int done, int total) { progress.update(done, total); };
    return Checker(options.translations, report).check(options.arguments);
}

QByteArray write(const Report &report, const Options &options)
{
    if (options.format == QLatin1String("json")) {
        return toJson(report, options.severities);
    }
    if (options.format == QLatin1String("sarif")) {
        return toSarif(report, options.severities);
    }
    if (options.format == QLatin1String("junit")) {
        return toJUnit(report, options.severities, options.strict);
    }
    return toText(report, options.severities, Terminal(stdout).hasColours());
}

bool fails(const Report &report, const Options &options)
{
    const Severity failing = options.strict ? Severity::Warning : Severity::Error;
    return std::any_of(report.cbegin(), report.cend(), [&](const FileFindings &file) {
        return std::any_of(file.findings.cbegin(), file.findings.cend(),
                           [&](const Finding &finding) { return options.severities.of(finding.tag) >= failing; });
    });
}

int run(const Options &options)
{
    const QString problem = problemWith(options);
    if (!problem.isEmpty()) {
        return refuse(s_syntax, problem);
    }
    const Report report = check(options);
    const QByteArray output = write(report, options);
    std::fwrite(output.constData(), 1, size_t(output.size()), stdout);
    return fails(report, options) ? Commands::Findings : Commands::Success;
}
}

int Commands::check(const QStringList &arguments)
{
    const QCommandLineOption explainTag(QStringLiteral("explain"), {}, QStringLiteral("TAG"));
    const QCommandLineOption list(QStringLiteral("list-tags"));
    const QCommandLineOption strict(QStringLiteral("strict"));
    const QCommandLineOption overrides(QStringLiteral("override"), {}, QStringLiteral("TAG=SEVERITY"));
    const QCommandLineOption translations(QStringLiteral("translations"), {}, QStringLiteral("DIR"),
                                          Constants::TranslationsDirectory);
    QCommandLineParser parser;
    parser.addOptions({explainTag, list, strict, overrides, translations});
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, s_syntax, arguments)) {
        return *exitStatus;
    }
    if (parser.isSet(explainTag)) {
        return explain(parser.value(explainTag));
    }
    if (parser.isSet(list)) {
        return listTags();
    }
    Options options{
        parser.positionalArguments(), parser.value(translations), formatOf(parser), {}, parser.isSet(strict)};
    const QString problem = readOverrides(parser.values(overrides), &options.severities);
    return problem.isEmpty() ? run(options) : refuse(s_syntax, problem);
}
