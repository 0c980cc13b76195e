// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "identifiedtexts.h"

#include "document.h"
#include "printable.h"
#include "registry/textfile.h"

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
