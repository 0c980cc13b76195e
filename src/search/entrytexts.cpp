// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/entrytexts.h"

#include "common/constants.h"
#include "registry/treeitem.h"
#include "registry/treeitem_p.h"
#include "search/words.h"

#include <QThreadPool>
#include <QTranslator>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace
{
// Each of these takes about a millisecond, to parse or to delete.
constexpr int MaxBytesOfSmallFile = 64 * 1024;
constexpr int MaxEntriesOfSmallFile = 2000;

/// Returns a pool of its own: in the global one, work of the application could come first.
QThreadPool *threadPool()
{
    static QThreadPool s_pool;
    return &s_pool;
}

struct Translation {
    QString localized; ///< null when no catalog has a text
    QString english; ///< null when no catalog of engineering English has a text
};

QString textIn(const QTranslator *translator, const QByteArray &id)
{
    const QString text = translator ? translator->translate(nullptr, id.constData()) : QString();
    return text == QString::fromLocal8Bit(id) ? QString() : text;
}

QString firstOf(const QString &text, const QString &other)
{
    return text.isNull() ? other : text;
}

/// Asks the catalogs of the file first: the application asks all, which takes long when there are many.
Translation translationOf(const QString &id, const FileCatalogs &catalogs)
{
    if (id.isEmpty()) {
        return {};
    }
    const QByteArray key = id.toLocal8Bit();
    const QString complementary = textIn(catalogs.complementary.engineeringEnglish, key);
    const QString english = textIn(catalogs.main.engineeringEnglish, key);
    QString localized = textIn(catalogs.complementary.localized, key);
    localized = firstOf(localized, complementary);
    localized = firstOf(localized, textIn(catalogs.main.localized, key));
    localized = firstOf(localized, english);
    if (localized.isNull()) {
        const QString text = qtTrId(key.constData());
        localized = text == id ? QString() : text;
    }
    return {localized, firstOf(complementary, english)};
}

QString textOf(const QJsonObject &entry, const char *key)
{
    return entry.value(QLatin1String(key)).toString();
}

QStringList listOf(const QString &text)
{
    QStringList keywords = text.split(QLatin1Char(';'));
    for (QString &keyword : keywords) {
        keyword = keyword.trimmed();
    }
    keywords.removeAll(QString());
    return keywords;
}

/// Returns as many of @p strings as have MaxLettersOfText letters together.
QStringList limited(const QStringList &strings)
{
    int letters = 0;
    const auto end = std::find_if(strings.cbegin(), strings.cend(), [&letters](const QString &string) {
        letters += std::min(string.size(), MaxLettersOfText);
        return letters > MaxLettersOfText;
    });
    return strings.mid(0, int(end - strings.cbegin()));
}

QStringList stringsOf(const QJsonValue &value)
{
    QStringList strings;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &element : array) {
        if (!element.toString().isEmpty()) {
            strings.append(element.toString());
        }
    }
    return strings;
}

void readTitles(const QJsonObject &entry, const FileCatalogs &catalogs, EntryTexts *texts)
{
    const Translation translation = translationOf(textOf(entry, "translation_id"), catalogs);
    const QString plain = textOf(entry, "title");
    texts->title = firstOf(translation.localized, plain);
    texts->englishTitle = firstOf(translation.english, plain).left(MaxLettersOfText);
    if (texts->englishTitle == texts->title) {
        texts->englishTitle.clear();
    }
}

void readKeywords(const QJsonObject &entry, const FileCatalogs &catalogs, EntryTexts *texts)
{
    const Translation translation = translationOf(textOf(entry, "keywords_id"), catalogs);
    const QStringList plain = stringsOf(entry.value(QLatin1String("keywords")));
    texts->keywords = limited(translation.localized.isNull() ? plain : listOf(translation.localized));
    texts->englishKeywords = limited(translation.english.isNull() ? plain : listOf(translation.english));
    if (texts->englishKeywords == texts->keywords) {
        texts->englishKeywords.clear();
    }
}
}

EntryTextReader::~EntryTextReader()
{
    if (m_entries.size() > MaxEntriesOfSmallFile) {
        threadPool()->start([entries = std::exchange(m_entries, {})] { Q_UNUSED(entries) });
    }
}

void EntryTextReader::open(const TreeItem *item)
{
    const NodeData::Entries file = TreeItemPrivate::of(item)->data.fileEntries();
    const QByteArray text = file ? file->unparsedText() : QByteArray();
    if (text.size() <= MaxBytesOfSmallFile) {
        return;
    }
    using Parse = std::packaged_task<QJsonArray()>;
    const auto parse = std::make_shared<Parse>([text] { return FileEntries::parse(text); });
    m_file = file;
    m_parse = parse->get_future();
    threadPool()->start([parse] { (*parse)(); });
}

bool EntryTextReader::isReady() const
{
    using namespace std::chrono_literals;
    return !m_parse.valid() || m_parse.wait_for(0s) == std::future_status::ready;
}

EntryTexts EntryTextReader::read(const TreeItem *item)
{
    const NodeData &data = TreeItemPrivate::of(item)->data;
    const QJsonObject entry = entryOf(data);
    const FileCatalogs catalogs = m_file ? m_file->catalogs() : FileCatalogs();
    EntryTexts texts;
    readTitles(entry, catalogs, &texts);
    readKeywords(entry, catalogs, &texts);
    texts.description = textOf(entry, "description").left(MaxLettersOfText);
    const QJsonValue type = entry.value(QLatin1String("type"));
    texts.type = type.isUndefined() || type.isNull() ? Constants::SectionType : type.toVariant().toString();
    texts.isSearchable = entry.value(QLatin1String("searchable")).toBool(true);
    return texts;
}

QJsonObject EntryTextReader::entryOf(const NodeData &data)
{
    const NodeData::Entries file = data.fileEntries();
    if (!file) {
        m_file = file;
        return QJsonObject::fromVariantMap(data.toMap());
    }
    if (m_parse.valid()) {
        m_entries = m_parse.get();
    }
    if (file != m_file) {
        m_file = file;
        m_entries = file->parsed();
    }
    return m_entries.at(data.entryIndex()).toObject();
}
