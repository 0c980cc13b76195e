// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/catalogsearch.h"

#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace
{
/// Returns the first of @p candidates that is a readable file, an empty string if none is.
QString firstReadable(const QStringList &candidates)
{
    const auto found = std::find_if(candidates.cbegin(), candidates.cend(), [](const QString &candidate) {
        const QFileInfo file(candidate);
        return file.isReadable() && file.isFile();
    });
    return found == candidates.cend() ? QString() : *found;
}

/// Returns @p path with the suffix of catalogs, or as it is. Returns an empty string if neither is a readable file.
QString withOrWithoutSuffix(const QString &path)
{
    return firstReadable({path + QLatin1String(".qm"), path});
}

QString pathOf(const QString &name, const QString &directory)
{
    if (!QFileInfo(name).isRelative()) {
        return name;
    }
    const bool isComplete = directory.isEmpty() || directory.endsWith(QLatin1Char('/'));
    return directory + (isComplete ? QString() : QStringLiteral("/")) + name;
}

/// Returns the languages of the user interface as the names of catalogs spell them, each in lower case as well.
QStringList languagesOf(const QLocale &locale)
{
    QStringList languages;
    const QStringList names = locale.uiLanguages();
    for (const QString &name : names) {
        languages.append(name);
        if (name != name.toLower()) {
            languages.append(name.toLower());
        }
    }
    return languages.replaceInStrings(QStringLiteral("-"), QStringLiteral("_"));
}

/// Returns the catalog of @p language, or of the most similar one that is less specific.
QString findForLanguage(const QString &path, QString language)
{
    for (int end = language.size(); end > 0; end = language.lastIndexOf(QLatin1Char('_'))) {
        language.truncate(end);
        QString found = withOrWithoutSuffix(path + language);
        if (!found.isEmpty()) {
            return found;
        }
    }
    return {};
}
}

QString findCatalog(const QString &name, const QString &directory)
{
    QString path = pathOf(name, directory);
    const int start = path.size() - name.size();
    for (;;) {
        QString found = withOrWithoutSuffix(path);
        const int end = std::max(path.lastIndexOf(QLatin1Char('_')), path.lastIndexOf(QLatin1Char('.')));
        if (!found.isEmpty() || end <= start) {
            return found;
        }
        path.truncate(end);
    }
}

QString findCatalog(const QLocale &locale, const QString &name, const QString &prefix, const QString &directory)
{
    const QString path = pathOf(name, directory);
    const QStringList languages = languagesOf(locale);
    for (const QString &language : languages) {
        QString found = findForLanguage(path + prefix, language);
        if (!found.isEmpty()) {
            return found;
        }
    }
    // Without a language Qt tries no suffix.
    return firstReadable({path + prefix, path});
}
