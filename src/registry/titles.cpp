// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/titles.h"

#include "registry/treeitem.h"

namespace
{
Title readTitle(const TreeItem &item, const QString &idKey, const QString &plainKey)
{
    const QString id = item.value(idKey).toString();
    if (!id.isEmpty()) {
        const QString text = qtTrId(id.toLocal8Bit().constData());
        if (text != id) {
            return {text, TitleSource::Catalog};
        }
    }
    const QString plain = item.value(plainKey).toString();
    return {plain, plain.isEmpty() ? TitleSource::Nothing : TitleSource::PlainText};
}
}

Title titleOf(const TreeItem &item)
{
    const Title title = readTitle(item, QStringLiteral("translation_id"), QStringLiteral("title"));
    return title.text.isEmpty() ? Title{QLatin1String("!!") + item.name(), TitleSource::NodeName} : title;
}

Title shortTitleOf(const TreeItem &item)
{
    return readTitle(item, QStringLiteral("translation_id_short"), QStringLiteral("title_short"));
}
