// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/navigationstate.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace
{
const QString s_pagesKey = QStringLiteral("pages");
const QString s_rowKey = QStringLiteral("row");

bool areTexts(const QJsonArray &values)
{
    return std::all_of(values.begin(), values.end(), [](const QJsonValue &value) { return value.isString(); });
}
}

QString NavigationState::toText() const
{
    if (pages.isEmpty() && row.isEmpty()) {
        return {};
    }
    const QJsonObject object{{s_pagesKey, QJsonArray::fromStringList(pages)}, {s_rowKey, row}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

std::optional<NavigationState> NavigationState::parse(const QString &text, int maxPages)
{
    if (text.isEmpty()) {
        return NavigationState();
    }
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    const QJsonValue pages = object.value(s_pagesKey);
    const QJsonValue row = object.value(s_rowKey);
    const QJsonArray array = pages.toArray();
    if (!pages.isArray() || !row.isString() || array.size() > maxPages || !areTexts(array)) {
        return {};
    }
    QStringList paths;
    for (const QJsonValue &page : array) {
        paths.append(page.toString());
    }
    return NavigationState{paths, row.toString()};
}
