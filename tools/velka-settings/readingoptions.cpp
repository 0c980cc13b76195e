// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "readingoptions.h"

#include "commands.h"
#include "common/constants.h"
#include "common/printable.h"
#include "progress.h"

#include <mgconfitem.h>

#include <QDir>
#include <QLoggingCategory>

namespace
{
void fail(const QString &message)
{
    std::fprintf(stderr, "velka-settings: %s\n", qUtf8Printable(printable(message)));
}

/// Returns whether there is no --locale, or the locale exists.
bool applyLocale(const QCommandLineParser &parser)
{
    if (!parser.optionNames().contains(QStringLiteral("locale"))) {
        return true;
    }
    const QString name = parser.value(QStringLiteral("locale"));
    const QLocale locale(name);
    if (locale.language() == QLocale::C && name != QLatin1String("C")) {
        fail(QStringLiteral("there is no locale \"%1\"").arg(name));
        return false;
    }
    QLocale::setDefault(locale);
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

std::unique_ptr<Inspection> inspect(const QCommandLineParser &parser, EntrySources sources, QStringList masked)
{
    if (!applyLocale(parser) || !applyUser(parser, &sources)) {
        return {};
    }
    if (!QDir(sources.entriesDirectory).isReadable()) {
        fail(QStringLiteral("cannot read %1").arg(sources.entriesDirectory));
        return {};
    }
    // The commands print their own messages about files.
    QLoggingCategory::setFilterRules(QStringLiteral("org.orvantaos.settings.framework.warning=false"));
    masked += parser.values(QStringLiteral("masked"));
    Progress progress;
    return std::make_unique<Inspection>(sources, masked,
                                        [&progress](int done, int total) { progress.update(done, total); });
}
}

void ReadingOptions::addUserTo(QCommandLineParser *parser)
{
    parser->addOption({QStringLiteral("uid"), {}, QStringLiteral("N")});
    parser->addOption({QStringLiteral("masked"), {}, QStringLiteral("PATH")});
}

std::optional<EntrySources> ReadingOptions::sourcesIn(const QString &directory)
{
    EntrySources sources = EntrySources::ofSystem();
    const QString root = QDir(directory).absolutePath();
    if (QDir(root + sources.entriesDirectory).exists()) {
        sources.entriesDirectory.prepend(root);
        sources.translationsDirectory.prepend(root);
        sources.favoritesBlacklistFile.prepend(root);
        return sources;
    }
    if (!QDir(root).exists()) {
        return {};
    }
    sources.entriesDirectory = root;
    return sources;
}

std::unique_ptr<Inspection> ReadingOptions::inspect(QCommandLineParser *parser, const CommandSyntax &syntax,
                                                    const QStringList &arguments, int *exitStatus)
{
    addUserTo(parser);
    parser->addOption({QStringLiteral("root"), {}, QStringLiteral("DIR")});
    parser->addOption({QStringLiteral("locale"), {}, QStringLiteral("L")});
    if (const std::optional<int> ended = parseCommandLine(parser, syntax, arguments)) {
        *exitStatus = *ended;
        return {};
    }
    *exitStatus = Commands::CannotRun;
    if (parser->isSet(QStringLiteral("root"))) {
        return inspect(*parser, parser->value(QStringLiteral("root")));
    }
    const QStringList masked = MGConfItem(Constants::MaskedSettingsKey).value().toStringList();
    return ::inspect(*parser, EntrySources::ofSystem(), masked);
}

std::unique_ptr<Inspection> ReadingOptions::inspect(const QCommandLineParser &parser, const QString &directory)
{
    const std::optional<EntrySources> sources = sourcesIn(directory);
    if (!sources) {
        fail(QStringLiteral("there is no directory %1").arg(directory));
        return {};
    }
    return ::inspect(parser, *sources, {});
}
