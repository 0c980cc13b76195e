// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostvocabulary.h"
#include "knownkeys.h"
#include "nearest.h"
#include "registry/jsonvariant.h"
#include "registry/treeitem.h"
#include "rules.h"
#include "valuetext.h"

#include <QHash>

namespace Check
{
namespace
{
const QStringList &knownTypes()
{
    static const QStringList types{QStringLiteral("action"), QStringLiteral("bool"),    QStringLiteral("custom"),
                                   QStringLiteral("enum"),   QStringLiteral("integer"), QStringLiteral("page"),
                                   QStringLiteral("section")};
    return types;
}

/// Returns the type that other programs call @p type.
QString typeCalled(const QString &type)
{
    static const QHash<QString, QString> others{{QStringLiteral("boolean"), QStringLiteral("bool")},
                                                {QStringLiteral("switch"), QStringLiteral("bool")},
                                                {QStringLiteral("toggle"), QStringLiteral("bool")},
                                                {QStringLiteral("checkbox"), QStringLiteral("bool")},
                                                {QStringLiteral("int"), QStringLiteral("integer")},
                                                {QStringLiteral("number"), QStringLiteral("integer")},
                                                {QStringLiteral("slider"), QStringLiteral("integer")},
                                                {QStringLiteral("range"), QStringLiteral("integer")},
                                                {QStringLiteral("list"), QStringLiteral("enum")},
                                                {QStringLiteral("choice"), QStringLiteral("enum")},
                                                {QStringLiteral("select"), QStringLiteral("enum")},
                                                {QStringLiteral("combobox"), QStringLiteral("enum")},
                                                {QStringLiteral("button"), QStringLiteral("action")},
                                                {QStringLiteral("command"), QStringLiteral("action")},
                                                {QStringLiteral("screen"), QStringLiteral("page")},
                                                {QStringLiteral("subpage"), QStringLiteral("page")},
                                                {QStringLiteral("group"), QStringLiteral("section")},
                                                {QStringLiteral("category"), QStringLiteral("section")},
                                                {QStringLiteral("header"), QStringLiteral("section")},
                                                {QStringLiteral("folder"), QStringLiteral("section")}};
    return others.value(type.toLower());
}

/// Returns @p type with the one of its words corrected that seems to be "custom".
QString withCustom(const QString &type)
{
    QStringList words = type.split(QLatin1Char('_'));
    for (QString &word : words) {
        if (isMisspelling(word, QStringLiteral("custom"))) {
            word = QStringLiteral("custom");
            return words.join(QLatin1Char('_'));
        }
    }
    return {};
}

void misspeltType(const Entry &entry, Findings *findings)
{
    const Written *written = entry.written->member(QLatin1String("type"));
    if (!written || written->kind != Written::String) {
        return;
    }
    const QString meant = meantType(entry);
    if (!meant.isEmpty()) {
        findings->atValue(
            Tag::TypeMisspelt, *written,
            QStringLiteral("unknown type %1: did you mean %2?").arg(quoted(entry.type), quoted(meant)));
    } else if (entry.type.trimmed().isEmpty()) {
        findings->atValue(Tag::TypeMisspelt, *written,
                          QStringLiteral("the type is empty: without \"type\" it is \"section\""));
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
    if (!value.isDouble()) {
        findings->atValue(Tag::OrderLost, *written,
                          QStringLiteral("\"order\" must be a number, not %1; the library reads %2")
                              .arg(describe(value))
                              .arg(result));
    } else if (qAbs(value.toDouble() - result) >= 1) {
        findings->atValue(Tag::OrderLost, *written,
                          QStringLiteral("the library reads this order as %1").arg(result));
    } else if (value.toDouble() != result) {
        findings->atValue(Tag::OrderRounded, *written,
                          QStringLiteral("the library rounds this order to %1").arg(result));
    }
}
}

QVector<EntryRule> typeRules()
{
    return {misspeltType, order};
}

QString meantType(const Entry &entry)
{
    const QString &type = entry.type;
    const QStringList known = entry.vocabulary ? entry.vocabulary->types() : knownTypes();
    if (type.isEmpty() || known.contains(type) || type.contains(QLatin1String("custom"))) {
        return {};
    }
    const QString called = typeCalled(type);
    const QString custom = known.contains(called) ? called : withCustom(type);
    return custom.isEmpty() ? nearest(type, known) : custom;
}

bool hasUnclearType(const Entry &entry)
{
    return !meantType(entry).isEmpty()
           || misspeltMember(*entry.written, KnownKeys::entry(), QLatin1String("type")) != nullptr;
}
}
