// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "readingoptions.h"

#include "commands.h"
#include "common/constants.h"
#include "localename.h"
#include "printable.h"
#include "progress.h"

#include <mgconfitem.h>

#include <QDir>
#include <QLoggingCategory>

namespace
{
const QString s_translationsOption = QStringLiteral("translations");

void fail(const QString &message)
{
    std::fprintf(stderr, "velka-settings: %s\n", qUtf8Printable(printable(message)));
}

/// Returns whether there is no --locale, or the locale exists.
bool applyLocale(const QCommandLineParser &parser)
{
    if (!parser.isSet(QStringLiteral("locale"))) {
        return true;
    }
    const QString name = parser.value(QStringLiteral("locale"));
    if (!isLocale(name)) {
        fail(QStringLiteral("there is no locale \"%1\"").arg(printable(name)));
        return false;
    }
    QLocale::setDefault(QLocale(name));
    return true;
}

/// Returns whether there is no --translations, or the directory exists.
bool applyTranslations(const QCommandLineParser &parser, EntrySources *sources)
{
    if (!parser.isSet(s_translationsOption)) {
        return true;
    }
    sources->translationsDirectory = parser.value(s_translationsOption);
    if (!QDir(sources->translationsDirectory).isReadable()) {
        fail(QStringLiteral("there is no directory \"%1\"").arg(printable(sources->translationsDirectory)));
        return false;
    }
    return true;
}

/// Returns whether there is no --uid, or it is a number.
bool applyUser(const QCommandLineParser &parser, EntrySources *sources)
{
    if (!parser.isSet(QStringLiteral("uid"))) {
        return true;
    }
    bool isNumber = false;
    sources->user = parser.value(QStringLiteral("uid")).toUInt(&isNumber);
    if (!isNumber) {
        fail(QStringLiteral("--uid takes the number of a user"));
    }
    return isNumber;
}

std::unique_ptr<Inspection> inspect(const QCommandLineParser &parser, NamedSources named, QStringList masked)
{
    EntrySources &sources = named.sources;
    if (!applyLocale(parser) || !applyUser(parser, &sources) || !applyTranslations(parser, &sources)) {
        return {};
    }
    if (!QDir(sources.entriesDirectory).isReadable()) {
        fail(QStringLiteral("cannot read %1").arg(printable(sources.entriesDirectory)));
        return {};
    }
    // The commands print their own messages about files.
    QLoggingCategory::setFilterRules(QStringLiteral("org.orvantaos.settings.framework.warning=false"));
    masked += parser.values(QStringLiteral("masked"));
    Progress progress;
    return std::make_unique<Inspection>(named, masked,
                                        [&progress](int done, int total) { progress.update(done, total); });
}
}

void ReadingOptions::addTo(QCommandLineParser *parser)
{
    parser->addOption({QStringLiteral("uid"), {}, QStringLiteral("N")});
    parser->addOption({QStringLiteral("masked"), {}, QStringLiteral("PATH")});
    parser->addOption({QStringLiteral("locale"), {}, QStringLiteral("L")});
    parser->addOption({s_translationsOption, {}, QStringLiteral("DIR")});
}

std::unique_ptr<Inspection> ReadingOptions::inspect(QCommandLineParser *parser, const CommandSyntax &syntax,
                                                    const QStringList &arguments, int *exitStatus,
                                                    ArgumentsAre meaning)
{
    addTo(parser);
    parser->addOption({QStringLiteral("root"), {}, QStringLiteral("DIR")});
    if (const std::optional<int> ended = parseCommandLine(parser, syntax, arguments)) {
        *exitStatus = *ended;
        return {};
    }
    *exitStatus = Commands::CannotRun;
    const QStringList files = meaning == ArgumentsAre::Files ? parser->positionalArguments() : QStringList();
    const QStringList named = parser->values(QStringLiteral("root")) + files;
    if (!named.isEmpty()) {
        return inspect(*parser, named);
    }
    const QStringList masked = MGConfItem(Constants::MaskedSettingsKey).value().toStringList();
    return ::inspect(*parser, {EntrySources::ofSystem(), {}}, masked);
}

std::unique_ptr<Inspection> ReadingOptions::inspect(const QCommandLineParser &parser, const QStringList &named)
{
    QString problem;
    const std::optional<NamedSources> sources = NamedSources::find(named, &problem);
    if (!sources) {
        fail(problem);
        return {};
    }
    return ::inspect(parser, *sources, {});
}
