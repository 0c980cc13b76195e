// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "identifiedtexts.h"

#include "document.h"
#include "printable.h"
#include "registry/textfile.h"
#include "translationid.h"

#include <QHash>
#include <QJsonArray>

namespace
{
using namespace Check;

/// Returns the text that @p value has, or the texts of a list as a search splits them.
QString textOf(const QJsonValue &value)
{
    QStringList texts;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &element : array) {
        texts.append(element.toString());
    }
    return value.isArray() ? texts.join(QStringLiteral("; ")) : value.toString();
}

/// Returns what is wrong with @p text, if anything. Adds it to @p known, the texts by their ids.
QString learn(const IdentifiedText &text, QHash<QString, QString> *known)
{
    if (!isWritableId(text.id)) {
        return QStringLiteral("a catalog (*.ts) cannot have the id \"%1\": use letters, digits and hyphens")
            .arg(printable(text.id));
    }
    QString &other = (*known)[text.id];
    if (!text.text.isEmpty() && !other.isEmpty() && text.text != other) {
        return QStringLiteral("the id \"%1\" has two texts: \"%2\" and \"%3\"")
            .arg(printable(text.id), printable(other), printable(text.text));
    }
    other = other.isEmpty() ? text.text : other;
    return {};
}

void collect(const Entry &entry, PlaceFinder *places, QVector<IdentifiedText> *texts)
{
    constexpr struct {
        const char *id;
        const char *text;
    } Keys[] = {{"translation_id", "title"}, {"translation_id_short", "title_short"}, {"keywords_id", "keywords"}};
    for (const auto &key : Keys) {
        const Written *const written = entry.written->member(QLatin1String(key.id));
        const QString id = readString(entry.read, QLatin1String(key.id));
        if (written && !id.isEmpty()) {
            const QString text = textOf(entry.read.value(QLatin1String(key.text)));
            texts->append({id, text, places->at(written->start).line});
        }
    }
}
}

std::optional<QVector<IdentifiedText>> identifiedTexts(const QString &path, QString *problem)
{
    Document document;
    const std::optional<QByteArray> text = readTextFile(path);
    document.text = text.value_or(QByteArray());
    Findings findings(document.text);
    if (!text || !parse(&document, &findings)) {
        const QVector<Finding> found = findings.take();
        const QString reason = text ? QString::number(found.constFirst().place.line) + QStringLiteral(": ")
                                          + found.constFirst().text
                                    : QStringLiteral(" cannot be read");
        *problem = printable(path) + QLatin1Char(':') + reason;
        return {};
    }
    PlaceFinder places(document.text);
    QVector<IdentifiedText> texts;
    for (const Entry &entry : document.entries) {
        collect(entry, &places, &texts);
    }
    return texts;
}

QString unifyTexts(QVector<TextFile> *files)
{
    QHash<QString, QString> known;
    for (const TextFile &file : std::as_const(*files)) {
        for (const IdentifiedText &text : file.texts) {
            const QString problem = learn(text, &known);
            if (!problem.isEmpty()) {
                return QStringLiteral("%1:%2: ").arg(printable(file.path), QString::number(text.line)) + problem;
            }
        }
    }
    for (TextFile &file : *files) {
        for (IdentifiedText &text : file.texts) {
            text.text = known.value(text.id);
        }
    }
    return {};
}
