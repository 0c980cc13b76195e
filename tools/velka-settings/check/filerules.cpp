// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pathrules.h"
#include "registry/registrationfile.h"
#include "rules.h"

#include <vector>

namespace Check
{
namespace
{
/// Whether the digits of @p literal are those of the double that the library makes of it.
bool isExact(const QByteArray &literal)
{
    constexpr int AlwaysExact = 15;
    const bool isWhole = std::all_of(literal.cbegin(), literal.cend(),
                                     [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
    return !isWhole || literal.size() <= AlwaysExact || QByteArray::number(literal.toDouble(), 'f', 0) == literal;
}

void checkNumber(const QByteArray &text, const Json::Value &number, Findings *findings)
{
    const int start = int(number.getOffsetStart());
    const QByteArray literal = text.mid(start, int(number.getOffsetLimit()) - start);
    if (!isExact(literal)) {
        findings->atOffset(Tag::NumberPrecision, start,
                           QStringLiteral("the library reads this number as %1")
                               .arg(QString::number(literal.toDouble(), 'f', 0)));
    }
}
}

void checkFileName(const QString &fileName, Findings *findings)
{
    if (fileName.startsWith(QLatin1String("fake")) && fileName.endsWith(QLatin1String(".json"))) {
        findings->atOffset(Tag::NameAside, 0, QStringLiteral("a file named \"fake…\" is never loaded"));
    } else if (!isRegistrationFile(fileName) || fileName.startsWith(QLatin1Char('.'))) {
        findings->atOffset(Tag::NameNeverLoaded, 0,
                           QStringLiteral("a file named %1 is never loaded").arg(quoted(fileName)));
    }
}

void checkNumbers(const Document &document, Findings *findings)
{
    std::vector<const Json::Value *> pending;
    for (const Entry &entry : document.entries) {
        pending.push_back(entry.written);
    }
    while (!pending.empty()) {
        const Json::Value &value = *pending.back();
        pending.pop_back();
        if (value.isNumeric()) {
            checkNumber(document.text, value, findings);
        } else if (value.isArray() || value.isObject()) {
            for (const Json::Value &element : value) {
                pending.push_back(&element);
            }
        }
    }
}

void checkBlacklist(const Document &document, Findings *findings)
{
    if (!document.root.isArray()) {
        findings->atValue(Tag::TopLevel, document.root, QStringLiteral("the favourites blacklist is an array"));
        return;
    }
    for (const Json::Value &element : document.root) {
        if (element.isString()) {
            const QString path = toText(element.asString());
            checkSlashes(path, splitPath(path), element, findings);
        } else {
            findings->atValue(Tag::BlacklistElement, element,
                              QStringLiteral("the library skips what is no string"));
        }
    }
}
}
