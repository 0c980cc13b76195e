// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "rules.h"

#include <QHash>
#include <QJsonArray>

namespace Check
{
namespace
{
const QLatin1String s_keywords("keywords");

QStringList stringsOf(const QJsonObject &entry)
{
    QStringList strings;
    const QJsonArray array = entry.value(s_keywords).toArray();
    for (const QJsonValue &element : array) {
        if (!element.toString().trimmed().isEmpty()) {
            strings.append(element.toString().trimmed());
        }
    }
    return strings;
}

bool isEqual(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

void emptyKeywords(const Entry &entry, Findings *findings)
{
    const Written *written = entry.written->member(s_keywords);
    if (written && written->kind == Written::Array && stringsOf(entry.read).isEmpty()) {
        findings->atValue(Tag::KeywordsEmpty, *written, QStringLiteral("there are no keywords in the list"));
    }
}

void keywordIsTitle(const Entry &entry, Findings *findings)
{
    const Written *written = entry.written->member(s_keywords);
    const QString title = readString(entry.read, QLatin1String("title"));
    if (!written || written->kind != Written::Array || title.isEmpty()) {
        return;
    }
    const QJsonArray keywords = entry.read.value(s_keywords).toArray();
    for (int i = 0; i < keywords.size(); ++i) {
        if (isEqual(keywords.at(i).toString().trimmed(), title)) {
            findings->atValue(Tag::KeywordIsTitle, written->children.at(std::size_t(i)),
                              QStringLiteral("the keyword %1 is the title, which is searched as well")
                                  .arg(quoted(keywords.at(i).toString())));
        }
    }
}

void idWithoutKeywords(const Entry &entry, Findings *findings)
{
    const Written *id = entry.written->member(QLatin1String("keywords_id"));
    if (id && id->kind == Written::String && !entry.written->member(s_keywords)) {
        findings->atValue(Tag::KeywordsIdAlone, *id,
                          QStringLiteral("without \"keywords\" there are none where the id is not translated"));
    }
}
}

QVector<EntryRule> keywordRules()
{
    return {emptyKeywords, keywordIsTitle, idWithoutKeywords};
}

void checkKeywordLists(const Document &document, Findings *findings)
{
    QHash<QStringList, QString> paths; // of the entries with these keywords
    for (const Entry &entry : document.entries) {
        QStringList keywords = stringsOf(entry.read);
        for (QString &keyword : keywords) {
            keyword = keyword.toCaseFolded();
        }
        keywords.sort();
        if (keywords.isEmpty() || !entry.writtenPath) {
            continue;
        }
        if (paths.contains(keywords) && paths.value(keywords) != entry.path) {
            findings->atValue(
                Tag::KeywordsRepeated, *entry.written->member(s_keywords),
                QStringLiteral("the keywords are those of %1: a search cannot tell the entries apart")
                    .arg(quoted(paths.value(keywords))));
        }
        paths.insert(keywords, entry.path);
    }
}
}
