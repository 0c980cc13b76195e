// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checker.h"

#include "pathrules.h"
#include "registry/textfile.h"
#include "rules.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>

namespace Check
{
namespace
{
const QString s_blacklist = QStringLiteral("favorites-blacklist.json");
const QString s_entries = QStringLiteral("entries");

/// Returns the files of a directory in the order in which the library loads them.
QStringList listFiles(const QString &directory)
{
    return QDir(directory).entryList(QDir::Files | QDir::Hidden);
}

QString joined(const QString &directory, const QString &name)
{
    return directory.endsWith(QLatin1Char('/')) ? directory + name : directory + QLatin1Char('/') + name;
}

QString directoryOf(const QString &file)
{
    const int slash = file.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QStringLiteral(".") : file.left(slash + 1);
}

/// Returns the files of @p directory, and of the entries directory in it, that seem to be meant for the library.
QStringList filesIn(const QString &directory)
{
    QStringList paths;
    const QStringList names = listFiles(directory);
    for (const QString &name : names) {
        if (name.contains(QLatin1String(".json"), Qt::CaseInsensitive)) {
            paths.append(joined(directory, name));
        }
    }
    const QString entries = joined(directory, s_entries);
    return QFileInfo(entries).isDir() ? paths + filesIn(entries) : paths;
}

/// Returns the group of files that are loaded together: those of one directory, and the blacklist next to it.
QString groupOf(const QString &path)
{
    const QDir directory = QFileInfo(path).absoluteDir();
    return directory.dirName() == s_entries ? QFileInfo(directory.path()).path() : directory.path();
}

bool isBlacklist(const QString &path)
{
    const QFileInfo file(path);
    return file.fileName() == s_blacklist && file.absoluteDir().dirName() != s_entries;
}

/// Returns @p paths, which belong to one group, in the order in which the library loads them.
QStringList inOrder(const QStringList &paths)
{
    QStringList ordered;
    QStringList directories;
    for (const QString &path : paths) {
        directories.append(directoryOf(path));
    }
    directories.removeDuplicates();
    for (const QString &directory : std::as_const(directories)) {
        QHash<QString, QString> given;
        for (const QString &path : paths) {
            if (directoryOf(path) == directory) {
                given.insert(QFileInfo(path).fileName(), path);
            }
        }
        const QStringList names = listFiles(directory);
        for (const QString &name : names) {
            if (given.contains(name)) {
                ordered.append(given.take(name));
            }
        }
        ordered += given.values(); // those that are not regular files
    }
    return ordered;
}

WrittenPath writtenPath(const QString &path, const Written &value, PlaceFinder *places)
{
    return {path, value.start, places->at(value.start)};
}

void collectBlacklisted(const Document &document, FileSummary *summary)
{
    if (document.root.kind != Written::Array) {
        return;
    }
    PlaceFinder places(document.text);
    const QJsonArray paths = document.read.toArray();
    for (int i = 0; i < paths.size(); ++i) {
        const Written &element = document.root.children.at(std::size_t(i));
        if (element.kind == Written::String) {
            summary->blacklisted.append(writtenPath(paths.at(i).toString(), element, &places));
        }
    }
}

void collectDeclared(const Document &document, FileSummary *summary)
{
    PlaceFinder places(document.text);
    for (const Entry &entry : document.entries) {
        if (entry.writtenPath) {
            summary->declared.append(writtenPath(entry.path, *entry.writtenPath, &places));
            summary->declared.last().entry = entry.read;
        }
    }
}

void collectGroups(const Document &document, FileSummary *summary)
{
    const QJsonObject read = document.read.toObject();
    summary->requiredGroup = read.value(QLatin1String("required_group")).toString();
    summary->disabledGroup = read.value(QLatin1String("disabled_group")).toString();
}

void checkEntries(const Document &document, Findings *findings)
{
    static const QVector<EntryRule> rules = pathRules() + keyRules() + favoriteRules() + actionRules();
    for (const Entry &entry : document.entries) {
        for (const EntryRule rule : rules) {
            rule(entry, findings);
        }
    }
}

void checkRegistration(const Document &document, Catalogs *catalogs, Findings *findings)
{
    if (document.root.kind == Written::Object) {
        checkTopLevel(document, findings);
        checkEntries(document, findings);
        checkNumbers(document, findings);
    }
    checkRegistrationSchema(document, findings);
    checkTitles(document, catalogs, findings);
}
}

Checker::Checker(const QString &translations, Progress progress)
    : m_catalogs(translations)
    , m_progress(std::move(progress))
{
}

std::vector<FileFindings> Checker::check(const QStringList &arguments)
{
    QStringList paths;
    for (const QString &argument : arguments) {
        paths += QFileInfo(argument).isDir() ? filesIn(argument) : QStringList(argument);
    }
    paths.removeDuplicates();
    m_total = paths.size();
    QStringList groups;
    QHash<QString, QStringList> members;
    for (const QString &path : std::as_const(paths)) {
        const QString group = groupOf(path);
        if (!members.contains(group)) {
            groups.append(group);
        }
        members[group].append(path);
    }
    std::vector<FileFindings> results;
    for (const QString &group : std::as_const(groups)) {
        checkTogether(inOrder(members.value(group)), &results);
    }
    return results;
}

void Checker::checkTogether(const QStringList &paths, std::vector<FileFindings> *results)
{
    std::vector<FileSummary> summaries(size_t(paths.size()));
    std::vector<FileFindings> findings;
    findings.reserve(summaries.size());
    for (FileSummary &summary : summaries) {
        findings.push_back(checkFile(paths.at(int(findings.size())), &summary));
        m_progress(++m_done, m_total);
    }
    DirectoryRules rules(summaries, &findings);
    rules.checkDuplicates();
    rules.checkSpelling();
    rules.checkParents();
    rules.checkBlacklist();
    for (FileFindings &file : findings) {
        std::stable_sort(file.findings.begin(), file.findings.end(),
                         [](const Finding &a, const Finding &b) { return a.offset < b.offset; });
        results->push_back(std::move(file));
    }
}

FileFindings Checker::checkFile(const QString &path, FileSummary *summary)
{
    summary->path = path;
    Document document;
    document.path = path;
    const std::optional<QByteArray> text = readTextFile(path);
    document.text = text.value_or(QByteArray());
    Findings findings(document.text);
    const bool isList = isBlacklist(path);
    if (!isList) {
        checkFileName(QFileInfo(path).fileName(), &findings);
    }
    if (!text) {
        findings.atOffset(Tag::Unreadable, 0, QStringLiteral("the file cannot be read"));
        return {path, findings.take()};
    }
    // A file that is never loaded declares nothing.
    const bool isLoaded = findings.isEmpty();
    const bool isParsed = parse(&document, &findings);
    if (isParsed && isList) {
        checkBlacklist(document, &findings);
        collectBlacklisted(document, summary);
    } else if (isParsed) {
        checkRegistration(document, &m_catalogs, &findings);
    }
    if (isLoaded && !isList) {
        collectGroups(document, summary);
        collectDeclared(document, summary);
    }
    return {path, findings.take()};
}
}
