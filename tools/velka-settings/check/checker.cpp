// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checker.h"

#include "brokenjson.h"
#include "common/constants.h"
#include "knownkeys.h"
#include "printable.h"
#include "registry/textfile.h"
#include "rules.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>
#include <filesystem>

#include <cstdio>

namespace Check
{
namespace
{
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
        } else if (const Written *misspelt = misspeltMember(*entry.written, KnownKeys::entry(),
                                                            QLatin1String("path"))) {
            summary->meant.append(entry.read.value(misspelt->key).toString());
        }
    }
    if (document.entries.empty()) {
        summary->meant = BrokenJson::paths(document.text); // "entries" may be misspelt
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
    static const QVector<EntryRule> ofTheLibrary = pathRules() + textRules() + actionRules() + typeRules()
                                                   + keyRules() + keywordRules() + favoriteRules();
    static const QVector<EntryRule> ofTheHost = ofTheLibrary + hostRules();
    const QVector<EntryRule> &rules = document.vocabulary ? ofTheHost : ofTheLibrary;
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
        checkKeywordLists(document, findings);
    }
    checkRegistrationSchema(document, findings);
    checkTitles(document, catalogs, findings);
}

std::optional<QByteArray> readStandardInput()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return {};
    }
    return input.readAll().replace('\r', "");
}

/// Returns the target of a link as it is written.
QString targetOf(const QString &link)
{
    std::error_code error;
    return QString::fromStdString(std::filesystem::read_symlink(link.toStdString(), error).string());
}

void reportUnreadable(const QFileInfo &file, Findings *findings)
{
    if (file.isSymLink() && !file.exists()) {
        findings->atOffset(Tag::DanglingLink, 0,
                           QStringLiteral("this link leads nowhere: there is no \"%1\"")
                               .arg(printable(targetOf(file.filePath()))));
    } else if (file.exists() && !file.isFile()) {
        findings->atOffset(Tag::Unreadable, 0, QStringLiteral("this is not a regular file: it is never loaded"));
    } else {
        findings->atOffset(Tag::Unreadable, 0, QStringLiteral("the file cannot be read: check its permissions"));
    }
}
}

Checker::Checker(const QString &translations, Progress progress, const VocabularyChoice &vocabulary)
    : m_translations(translations)
    , m_vocabulary(vocabulary)
    , m_progress(std::move(progress))
{
}

std::vector<FileFindings> Checker::check(const CheckedFiles &files)
{
    m_total = files.count();
    std::vector<FileFindings> results;
    const QVector<FileGroup> groups = files.groups();
    for (const FileGroup &group : groups) {
        checkTogether(group, &results);
    }
    return results;
}

std::vector<FileFindings> Checker::check(const QStringList &arguments)
{
    CheckedFiles files;
    for (const QString &argument : arguments) {
        QString problem;
        if (const std::optional<EntriesPlace> place = EntriesPlace::find(argument, &problem)) {
            files.add(*place);
        }
    }
    return check(files);
}

void Checker::checkTogether(const FileGroup &files, std::vector<FileFindings> *results)
{
    std::vector<FileSummary> summaries(size_t(files.size()));
    std::vector<FileFindings> findings;
    findings.reserve(summaries.size());
    for (FileSummary &summary : summaries) {
        findings.push_back(checkFile(files.at(int(findings.size())), &summary));
        m_progress(++m_done, m_total);
    }
    DirectoryRules rules(summaries, &findings);
    rules.checkDuplicates();
    rules.checkParents();
    rules.checkBlacklist();
    for (int i = 0; i < files.size(); ++i) {
        if (files.at(i).isInstalled) {
            continue;
        }
        FileFindings &file = findings[std::size_t(i)];
        std::stable_sort(file.findings.begin(), file.findings.end(),
                         [](const Finding &a, const Finding &b) { return a.offset < b.offset; });
        if (file.findings.isEmpty()) {
            file.text.clear();
        }
        results->push_back(std::move(file));
    }
}

FileFindings Checker::checkFile(const CheckedFile &file, FileSummary *summary)
{
    summary->path = file.path;
    summary->isInstalled = file.isInstalled;
    Document document;
    document.path = file.path;
    document.vocabulary = vocabularyOf(file);
    const std::optional<QByteArray> text = file.isStandardInput ? readStandardInput() : readTextFile(file.path);
    document.text = text.value_or(QByteArray());
    Findings findings(document.text);
    const QFileInfo info(file.path);
    if (info.isDir()) {
        findings.atOffset(Tag::Subdirectory, 0,
                          QStringLiteral("the library reads no subdirectories: files in it are never loaded"));
        return {file.path, findings.take(), {}, false};
    }
    if (!file.isStandardInput && !isBlacklistPath(file.path)) {
        checkFileName(info.fileName(), &findings);
    }
    const bool isLoaded = findings.isEmpty();
    if (!text) {
        reportUnreadable(info, &findings);
        summary->isUnclear = true;
        return {file.path, findings.take(), {}};
    }
    checkText(&document, isLoaded, catalogsOf(file), &findings, summary);
    return {file.path, findings.take(), document.text};
}

void Checker::checkText(Document *document, bool isLoaded, Catalogs *catalogs, Findings *findings,
                        FileSummary *summary)
{
    const bool isList = isBlacklistPath(document->path);
    const bool isParsed = parse(document, findings);
    if (isParsed && isList) {
        checkBlacklist(*document, findings);
        collectBlacklisted(*document, summary);
    } else if (isParsed) {
        checkRegistration(*document, catalogs, findings);
    }
    if (isList) {
        return;
    }
    if (isParsed && isLoaded) {
        collectGroups(*document, summary);
        collectDeclared(*document, summary);
    } else {
        summary->meant = BrokenJson::paths(document->text);
        summary->isUnclear = !isParsed && summary->meant.isEmpty() && !document->text.trimmed().isEmpty();
    }
}

const HostVocabulary *Checker::vocabularyOf(const CheckedFile &file)
{
    if (m_vocabulary.named) {
        return &*m_vocabulary.named;
    }
    const QString system = m_vocabulary.admitsSystem ? HostVocabulary::systemPath() : QString();
    const QString path = QFileInfo::exists(file.vocabulary) ? file.vocabulary : system;
    const auto known = m_vocabularies.find(path);
    if (known != m_vocabularies.end()) {
        return known->second ? &*known->second : nullptr;
    }
    QString problem;
    std::optional<HostVocabulary> &vocabulary = m_vocabularies[path];
    vocabulary = QFileInfo::exists(path) ? HostVocabulary::read(path, &problem) : std::nullopt;
    if (!problem.isEmpty()) {
        std::fprintf(stderr, "velka-settings: %s\n", qUtf8Printable(problem));
    }
    return vocabulary ? &*vocabulary : nullptr;
}

Catalogs *Checker::catalogsOf(const CheckedFile &file)
{
    QString directory = m_translations.isEmpty() ? file.translations : m_translations;
    if (directory.isEmpty()) {
        directory = Constants::TranslationsDirectory;
    }
    return &m_catalogs.try_emplace(directory, directory).first->second;
}
}
