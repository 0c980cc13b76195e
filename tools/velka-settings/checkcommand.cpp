// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checker.h"
#include "commands.h"
#include "common/constants.h"
#include "formats.h"
#include "progress.h"
#include "terminal.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

#include <cstdio>

namespace
{
using namespace Check;

constexpr char Usage[] = R"(Usage: velka-settings check [OPTION]... FILE|DIR...

Tells what the library would refuse, lose or misread in registration files and
favourites blacklists, and what is most likely a mistake. Prints a line for
each finding: file:line:column: severity: text [tag].

  --explain TAG          explains the findings of a tag
  --list-tags            lists all tags
  --strict               lets warnings fail as errors do
  --override TAG=SEVERITY
                         treats a tag as an error, warning or note, or ignores
                         it (error, warning, note, ignore); may be repeated
  --format FORMAT        text (the default), json, sarif or junit
  --translations DIR     looks for compiled catalogs in DIR; otherwise in the
                         system's directory

Files of one directory are checked together, and those of a directory that is
given as DIR, with the directory "entries" in it. A file that is named
favorites-blacklist.json is checked as that.

Exit status: 0 nothing, 1 errors were found, 2 the check could not be run.
)";

struct Options {
    QStringList arguments;
    QString translations = Constants::TranslationsDirectory;
    QString format = QStringLiteral("text");
    Severities severities;
    bool strict = false;
};

int fail(const QString &text)
{
    std::fprintf(stderr, "velka-settings check: %s\n", qUtf8Printable(text));
    return Commands::CannotRun;
}

int explain(const QString &name)
{
    const std::optional<Tag> tag = findTag(name);
    if (!tag) {
        return fail(QStringLiteral("there is no tag \"%1\"").arg(name));
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

/// What is wrong with @p overrides; nothing when they are @p severities now.
QString readOverrides(const QStringList &overrides, Severities *severities)
{
    for (const QString &text : overrides) {
        const std::optional<Tag> tag = findTag(text.section(QLatin1Char('='), 0, 0));
        const std::optional<Severity> severity = findSeverity(text.section(QLatin1Char('='), 1));
        if (!tag || !severity) {
            return QStringLiteral("\"%1\" is no TAG=SEVERITY").arg(text);
        }
        severities->override(*tag, *severity);
    }
    return {};
}

QString problemWith(const Options &options)
{
    static const QStringList formats{QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("sarif"),
                                     QStringLiteral("junit")};
    if (!formats.contains(options.format)) {
        return QStringLiteral("there is no format \"%1\"").arg(options.format);
    }
    if (options.arguments.isEmpty()) {
        return QStringLiteral("which files? See velka-settings check --help");
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
    const auto tell = [&progress](int done, int total) { progress.update(done, total); };
    return Checker(options.translations, tell).check(options.arguments);
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
        return fail(problem);
    }
    const Report report = check(options);
    const QByteArray output = write(report, options);
    std::fwrite(output.constData(), 1, size_t(output.size()), stdout);
    return fails(report, options) ? Commands::Findings : Commands::Success;
}
}

int Commands::check(const QStringList &arguments)
{
    const QCommandLineOption help(QStringLiteral("help"));
    const QCommandLineOption explainTag(QStringLiteral("explain"), {}, QStringLiteral("TAG"));
    const QCommandLineOption list(QStringLiteral("list-tags"));
    const QCommandLineOption strict(QStringLiteral("strict"));
    const QCommandLineOption overrides(QStringLiteral("override"), {}, QStringLiteral("TAG=SEVERITY"));
    const QCommandLineOption format(QStringLiteral("format"), {}, QStringLiteral("FORMAT"));
    const QCommandLineOption translations(QStringLiteral("translations"), {}, QStringLiteral("DIR"));
    QCommandLineParser parser;
    parser.addOptions({help, explainTag, list, strict, overrides, format, translations});
    if (!parser.parse(QStringList(QStringLiteral("check")) + arguments)) {
        return fail(parser.errorText());
    }
    if (parser.isSet(help)) {
        std::fputs(Usage, stdout);
        return Success;
    }
    if (parser.isSet(explainTag)) {
        return explain(parser.value(explainTag));
    }
    if (parser.isSet(list)) {
        return listTags();
    }
    Options options;
    options.arguments = parser.positionalArguments();
    options.strict = parser.isSet(strict);
    if (parser.isSet(format)) {
        options.format = parser.value(format);
    }
    if (parser.isSet(translations)) {
        options.translations = parser.value(translations);
    }
    const QString problem = readOverrides(parser.values(overrides), &options.severities);
    return problem.isEmpty() ? run(options) : fail(problem);
}
