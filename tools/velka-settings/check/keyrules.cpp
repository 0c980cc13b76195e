// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "knownkeys.h"
#include "nearest.h"
#include "registry/jsonvariant.h"
#include "registry/treeitem.h"
#include "rules.h"

namespace Check
{
namespace
{
void reportUnknown(const Written &object, const QStringList &known, bool isOther, Findings *findings)
{
    for (const Written &member : object.children) {
        const QString &key = member.key;
        if (known.contains(key)) {
            continue;
        }
        const QString meant = nearest(key, known);
        if (!meant.isEmpty()) {
            findings->atKey(Tag::KeyMisspelt, member,
                            QStringLiteral("unknown key %1: did you mean %2?").arg(quoted(key), quoted(meant)));
        } else if (!isOther) {
            findings->atKey(Tag::KeyUnknown, member, QStringLiteral("unknown key %1").arg(quoted(key)));
        }
    }
}

void unknownKeys(const Entry &entry, Findings *findings)
{
    static const QStringList elsewhere = KnownKeys::action()
                                         + QStringList{QStringLiteral("from_file"),
                                                       QStringLiteral("allow_favorite"),
                                                       QStringLiteral("simpleGrid")};
    static const QStringList known = KnownKeys::entry() + elsewhere;
    reportUnknown(*entry.written, known, false, findings);
}

void unknownParams(const Entry &entry, Findings *findings)
{
    if (entry.writtenParams) {
        const bool isOther = entry.type != QLatin1String("action");
        reportUnknown(*entry.writtenParams, KnownKeys::params(), isOther, findings);
    }
}

void misplacedParams(const Entry &entry, Findings *findings)
{
    static const QStringList names = KnownKeys::action() + QStringList{QStringLiteral("simpleGrid")};
    for (const Written &member : entry.written->children) {
        if (names.contains(member.key)) {
            findings->atKey(Tag::ParamMisplaced, member,
                            QStringLiteral("%1 is only read in \"params\"").arg(quoted(member.key)));
        }
    }
}

void fromFile(const Entry &entry, Findings *findings)
{
    if (const Written *value = entry.written->member(QLatin1String("from_file"))) {
        findings->atKey(Tag::FromFile, *value,
                        QStringLiteral("the library replaces \"from_file\" with the name of the file"));
    }
}

void misspeltType(const Entry &entry, Findings *findings)
{
    static const QStringList types{QStringLiteral("action"), QStringLiteral("bool"),    QStringLiteral("custom"),
                                   QStringLiteral("enum"),   QStringLiteral("integer"), QStringLiteral("page"),
                                   QStringLiteral("section")};
    const QString &type = entry.type;
    if (type.isEmpty() || types.contains(type) || type.contains(QLatin1String("custom"))) {
        return;
    }
    const QString meant = nearest(type, types);
    if (!meant.isEmpty()) {
        findings->atValue(Tag::TypeMisspelt, *entry.written->member(QLatin1String("type")),
                          QStringLiteral("unknown type %1: did you mean %2?").arg(quoted(type), quoted(meant)));
    }
}

/// Returns whether @p value is an int, or a string that the library converts to one.
bool isInt(const QJsonValue &value)
{
    bool isNumber = false;
    value.toString().toInt(&isNumber);
    return isNumber || value.toInt(0) == value.toInt(1);
}

void order(const Entry &entry, Findings *findings)
{
    const Written *written = entry.written->member(QLatin1String("order"));
    const QJsonValue value = entry.read.value(QLatin1String("order"));
    if (!written || value.isNull() || value.isBool() || isInt(value)) {
        return;
    }
    const int result = TreeItem({}, {{QStringLiteral("order"), jsonToVariant(value)}}).order();
    if (!value.isDouble() || qAbs(value.toDouble() - result) >= 1) {
        findings->atValue(Tag::OrderLost, *written,
                          QStringLiteral("the library reads this order as %1").arg(result));
    } else if (value.toDouble() != result) {
        findings->atValue(Tag::OrderRounded, *written,
                          QStringLiteral("the library rounds this order to %1").arg(result));
    }
}
}

QVector<EntryRule> keyRules()
{
    return {unknownKeys, unknownParams, misplacedParams, fromFile, misspeltType, order};
}

void checkTopLevel(const Document &document, Findings *findings)
{
    const Written &root = document.root;
    reportUnknown(root, KnownKeys::topLevel(), false, findings);
    const Written *entries = root.member(QLatin1String("entries"));
    if (!entries || (entries->kind == Written::Array && entries->children.empty())) {
        findings->atValue(Tag::NoEntries, entries ? *entries : root, QStringLiteral("the file declares nothing"));
    }
    const QJsonObject read = document.read.toObject();
    const QString group = read.value(QLatin1String("required_group")).toString();
    if (!group.isEmpty() && group == read.value(QLatin1String("disabled_group")).toString()) {
        findings->atValue(Tag::GroupsContradict, *root.member(QLatin1String("disabled_group")),
                          QStringLiteral("no user is both in the group %1 and not in it: the file is never used")
                              .arg(quoted(group)));
    }
}
}
