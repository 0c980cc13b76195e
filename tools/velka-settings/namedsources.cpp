// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "namedsources.h"

#include "entriesplace.h"
#include "printable.h"

#include <QFileInfo>
#include <QHash>
#include <QTemporaryDir>

namespace
{
/// Links to files, all in one directory.
class Links
{
public:
    /// Returns what is wrong with @p file, if anything.
    QString add(const QString &file)
    {
        const QFileInfo info(file);
        const QString name = info.fileName();
        const QString known = m_known.value(name);
        if (known.isEmpty()) {
            m_known.insert(name, file);
            return QFile::link(info.absoluteFilePath(), m_directory->filePath(name))
                       ? QString()
                       : QStringLiteral("cannot link to \"%1\"").arg(printable(file));
        }
        return QFileInfo(known).canonicalFilePath() == info.canonicalFilePath()
                   ? QString()
                   : QStringLiteral("two files have the same name: \"%1\" and \"%2\"")
                         .arg(printable(known), printable(file));
    }

    std::shared_ptr<const QTemporaryDir> directory() const
    {
        return m_directory;
    }

private:
    const std::shared_ptr<QTemporaryDir> m_directory = std::make_shared<QTemporaryDir>();
    QHash<QString, QString> m_known;
};

void use(const EntriesPlace &place, EntrySources *sources)
{
    if (!place.blacklist.isEmpty()) {
        sources->favoritesBlacklistFile = place.blacklist;
    }
    if (!place.translations.isEmpty()) {
        sources->translationsDirectory = place.translations;
    }
}

QString problemWith(const EntriesPlace &place, const QString &argument)
{
    if (place.files.isEmpty()) {
        return QStringLiteral("there is no registration file in \"%1\", only a favourites blacklist")
            .arg(printable(argument));
    }
    const QString name = QFileInfo(argument).fileName();
    const QString reason = place.isFile() ? whyNeverLoaded(name) : QString();
    return reason.isEmpty()
               ? QString()
               : QStringLiteral("\"%1\" is never loaded: its name %2").arg(printable(argument), reason);
}
}

std::optional<NamedSources> NamedSources::find(const QStringList &arguments, QString *problem)
{
    NamedSources named{EntrySources::ofSystem(), {}};
    Links links;
    for (const QString &argument : arguments) {
        const std::optional<EntriesPlace> place = EntriesPlace::find(argument, problem);
        if (!place) {
            return {};
        }
        *problem = problemWith(*place, argument);
        use(*place, &named.sources);
        if (arguments.size() == 1 && !place->isFile()) {
            named.sources.entriesDirectory = place->directory;
            return problem->isEmpty() ? std::make_optional(named) : std::nullopt;
        }
        for (const QString &file : place->files) {
            *problem = problem->isEmpty() ? links.add(file) : *problem;
        }
        if (!problem->isEmpty()) {
            return {};
        }
    }
    named.links = links.directory();
    named.sources.entriesDirectory = named.links->path();
    return named;
}

QString whyNeverLoaded(const QString &name)
{
    if (name.contains(QLatin1Char('/'))) {
        return QStringLiteral("is that of a file in a subdirectory");
    }
    if (name.startsWith(QLatin1Char('.'))) {
        return QStringLiteral("begins with a dot");
    }
    if (name.startsWith(QLatin1String("fake"))) {
        return QStringLiteral("begins with \"fake\"");
    }
    return name.endsWith(QLatin1String(".json")) ? QString() : QStringLiteral("does not end in \".json\"");
}
