// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pathrules.h"
#include "printable.h"
#include "registry/registrationfile.h"
#include "rules.h"
#include "valuetext.h"

#include <QJsonArray>

#include <vector>

namespace Check
{
namespace
{
/// Returns whether the library, which reads numbers as doubles, keeps all digits of @p literal.
bool isExact(const QByteArray &literal)
{
    constexpr int AlwaysExact = 15;
    const bool isWhole = std::all_of(literal.cbegin(), literal.cend(),
                                     [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
    return !isWhole || literal.size() <= AlwaysExact || QByteArray::number(literal.toDouble(), 'f', 0) == literal;
}

void checkNumber(const QByteArray &text, const Written &number, Findings *findings)
{
    const int start = number.start;
    const QByteArray literal = text.mid(start, number.end - start);
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
        findings->atOffset(Tag::NameAside, 0,
                           QStringLiteral("a file whose name begins with \"fake\" is never loaded"));
    } else if (!isRegistrationFile(fileName) || fileName.startsWith(QLatin1Char('.'))) {
        findings->atOffset(
            Tag::NameNeverLoaded, 0,
            QStringLiteral("a file named \"%1\" is never loaded: %2")
                .arg(printable(fileName), fileName.startsWith(QLatin1Char('.'))
                                              ? QStringLiteral("its name begins with a dot")
                                              : QStringLiteral("its name does not end in \".json\"")));
    }
}

void checkNumbers(const Document &document, Findings *findings)
{
    std::vector<const Written *> pending;
    for (const Entry &entry : document.entries) {
        pending.push_back(entry.written);
    }
    while (!pending.empty()) {
        const Written &value = *pending.back();
        pending.pop_back();
        if (value.isNumber()) {
            checkNumber(document.text, value, findings);
        }
        for (const Written &child : value.children) {
            pending.push_back(&child);
        }
    }
}

void checkBlacklist(const Document &document, Findings *findings)
{
    if (document.root.kind != Written::Array) {
        findings->atValue(Tag::TopLevel, document.root,
                          QStringLiteral("the favourites blacklist must be an array of paths: [\"…\", \"…\"]"));
        return;
    }
    const QJsonArray paths = document.read.toArray();
    for (int i = 0; i < paths.size(); ++i) {
        const Written &element = document.root.children.at(std::size_t(i));
        const QString path = paths.at(i).toString();
        if (element.kind == Written::String) {
            checkSlashes(path, splitPath(path), element, findings);
        } else {
            findings->atValue(
                Tag::BlacklistElement, element,
                QStringLiteral("an element must be the path of an entry, a string, not %1; the library "
                               "ignores it")
                    .arg(describe(paths.at(i))));
        }
    }
}
}
