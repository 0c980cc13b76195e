// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checker.h"
#include "commandline.h"
#include "commands.h"
#include "formats.h"
#include "printable.h"
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
and favourites blacklists, and probable mistakes, each with its place and tag.

  --explain TAG       explains the findings of a tag
  --list-tags         lists all tags
  --strict            treats warnings as errors in the exit status
  --override TAG=SEVERITY
                      treats a tag as an error, warning or note, or ignores it
                      (error, warning, note, ignore); repeatable
  --format FORMAT     text (the default), json, sarif or junit
  --translations DIR  looks for compiled catalogs (*.qm) in DIR
  --vocabulary FILE   checks what the host with this vocabulary shows
  --no-system-vocabulary  ignores the vocabulary of this system
  --with DIR|SYSTEM   compares with the entries that are installed: in DIR, or
                      on this system
  -h, --help          prints this; --version prints the version

DIR is a directory of registration files, one with entries/ in it, or the root
of an image or unpacked package. Files in one directory are checked together.
"-" is standard input.

Exit status: 0; 1 when there are errors; 2 when the check could not be run.
)";

const CommandSyntax s_syntax{
    "check",
    s_checkHelp,
    {QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("sarif"), QStringLiteral("junit")},
    0, // some options need no argument
    CommandSyntax::Unlimited,
    "FILE or DIR"};

struct Options {
    QStringList arguments;
    QString translations;
    QString vocabulary;
    bool admitsSystemVocabulary;
    QString installed; ///< empty when there is nothing to compare with
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

/// Adds what the command line names to @p files. Returns what is wrong with it, if anything.
QString collect(const Options &options, CheckedFiles *files)
{
    if (options.arguments.isEmpty()) {
        return QStringLiteral("1 argument is needed: FILE or DIR");
    }
    if (!options.translations.isEmpty() && !QFileInfo(options.translations).isDir()) {
        return QStringLiteral("there is no directory \"%1\"").arg(printable(options.translations));
    }
    QString problem;
    for (const QString &argument : options.arguments) {
        if (argument == QLatin1String("-")) {
            files->addStandardInput();
        } else if (const std::optional<EntriesPlace> place = EntriesPlace::find(argument, &problem)) {
            files->add(*place);
        } else {
            return problem;
        }
    }
    if (!options.installed.isEmpty()) {
        const bool isSystem = options.installed == QLatin1String("SYSTEM");
        const QString directory = isSystem ? QStringLiteral("/") : options.installed;
        if (const std::optional<EntriesPlace> place = EntriesPlace::find(directory, &problem)) {
            files->compareWith(*place);
        }
    }
    return problem;
}

Report check(const CheckedFiles &files, const QString &translations, const VocabularyChoice &vocabulary)
{
    Progress progress;
    const auto report = [&progress](int done, int total) { progress.update(done, total); };
    return Checker(translations, report, vocabulary).check(files);
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
    CheckedFiles files;
    QString problem = collect(options, &files);
    VocabularyChoice vocabulary{{}, options.admitsSystemVocabulary};
    if (problem.isEmpty() && !options.vocabulary.isEmpty()) {
        vocabulary.named = HostVocabulary::read(options.vocabulary, &problem);
    }
    if (!problem.isEmpty()) {
        return refuse(s_syntax, problem);
    }
    const Report report = check(files, options.translations, vocabulary);
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
    const QCommandLineOption translations(QStringLiteral("translations"), {}, QStringLiteral("DIR"));
    const QCommandLineOption vocabulary(QStringLiteral("vocabulary"), {}, QStringLiteral("FILE"));
    const QCommandLineOption noSystemVocabulary(QStringLiteral("no-system-vocabulary"));
    const QCommandLineOption installed(QStringLiteral("with"), {}, QStringLiteral("DIR|SYSTEM"));
    QCommandLineParser parser;
    parser.addOptions(
        {explainTag, list, strict, overrides, translations, vocabulary, noSystemVocabulary, installed});
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, s_syntax, arguments)) {
        return *exitStatus;
    }
    if (parser.isSet(explainTag)) {
        return explain(parser.value(explainTag));
    }
    if (parser.isSet(list)) {
        return listTags();
    }
    Options options{parser.positionalArguments(),
                    parser.value(translations),
                    parser.value(vocabulary),
                    !parser.isSet(noSystemVocabulary),
                    parser.value(installed),
                    formatOf(parser),
                    {},
                    parser.isSet(strict)};
    const QString problem = readOverrides(parser.values(overrides), &options.severities);
    return problem.isEmpty() ? run(options) : refuse(s_syntax, problem);
}
