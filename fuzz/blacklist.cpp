// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is the favourites blacklist file.

#include "harness.h"

#include "registry/blacklistfile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QVariant>

namespace
{
QSet<QString> stringsIn(QByteArray json)
{
    QSet<QString> strings;
    // The file is read as text.
    const QVariantList elements = QJsonDocument::fromJson(json.replace('\r', "")).array().toVariantList();
    for (const QVariant &element : elements) {
        if (element.userType() == QMetaType::QString) {
            strings.insert(element.toString());
        }
    }
    return strings;
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Scratch scratch;
    const QByteArray json(reinterpret_cast<const char *>(data), int(size));
    const LeakPermission permission(!isJson(QByteArray(json).replace('\r', "")));
    scratch.write(QStringLiteral("blacklist.json"), json);
    require(readBlacklistFile(scratch.path(QStringLiteral("blacklist.json"))) == stringsIn(json),
            "the blacklist is the strings of the array");
    return 0;
}
