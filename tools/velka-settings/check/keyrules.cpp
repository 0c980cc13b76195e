// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostvocabulary.h"
#include "knownkeys.h"
#include "rules.h"

namespace Check
{
namespace
{
/// Reports the keys of @p object that are not @p known, unless another rule has reported them. @p canHaveOthers is
/// true when programs have keys of their own there.
void reportUnknown(const Written &object, const QStringList &known, bool canHaveOthers, Findings *findings)
{
    for (const Written &member : object.children) {
        const QString &key = member.key;
        if (known.contains(key) || findings->hasAtKey(member)) {
            continue;
        }
        const QString meant = KnownKeys::meantBy(key, object, known);
        if (!meant.isEmpty()) {
            findings->atKey(Tag::KeyMisspelt, member,
                            QStringLiteral("unknown key %1: did you mean %2?").arg(quoted(key), quoted(meant)));
        } else if (!canHaveOthers) {
            findings->atKey(Tag::KeyUnknown, member, QStringLiteral("unknown key %1").arg(quoted(key)));
        }
    }
}

QStringList keysOfTheFile()
{
    QStringList keys = KnownKeys::topLevel();
    keys.removeAll(QStringLiteral("$schema"));
    return keys;
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
        const QStringList ofHost = entry.vocabulary ? entry.vocabulary->paramsOf(entry.type).keys()
                                                    : QStringList();
        reportUnknown(*entry.writtenParams, KnownKeys::params() + ofHost, isOther || entry.vocabulary, findings);
    }
}

/// Reports all keys that belong in "params" at the first of them.
void misplacedParams(const Entry &entry, Findings *findings)
{
    static const QStringList names = KnownKeys::action() + QStringList{QStringLiteral("simpleGrid")};
    QStringList misplaced;
    const Written *first = nullptr;
    for (const Written &member : entry.written->children) {
        if (names.contains(member.key)) {
            first = first ? first : &member;
            misplaced.append(quoted(member.key));
        }
    }
    if (first) {
        findings->atKey(Tag::ParamMisplaced, *first,
                        QStringLiteral("%1 %2 only read in \"params\"")
                            .arg(misplaced.join(QStringLiteral(", ")),
                                 misplaced.size() == 1 ? QStringLiteral("is") : QStringLiteral("are")));
    }
}

QString consequenceOf(const QString &key)
{
    if (key == QLatin1String("required_group") || key == QLatin1String("disabled_group")) {
        return QStringLiteral("everybody sees the entry");
    }
    return QStringLiteral("its texts are not found");
}

void keysOfFile(const Entry &entry, Findings *findings)
{
    static const QStringList keys = keysOfTheFile();
    for (const Written &member : entry.written->children) {
        if (member.key == QLatin1String("entries")) {
            findings->atKey(
                Tag::NestedEntries, member,
                QStringLiteral("entries in an entry are never shown: write them into the \"entries\" of "
                               "the file, with their whole paths"));
        } else if (keys.contains(member.key)) {
            findings->atKey(Tag::FileKeyInEntry, member,
                            QStringLiteral("%1 is only read at the top level of the file: %2")
                                .arg(quoted(member.key), consequenceOf(member.key)));
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

/// Reports the keys of entries at the top level at the first of them. Returns whether there are any.
bool checkEntryKeys(const Written &root, Findings *findings)
{
    const Written *first = nullptr;
    for (const Written &member : root.children) {
        if (!KnownKeys::topLevel().contains(member.key) && KnownKeys::entry().contains(member.key)) {
            if (!first) {
                first = &member;
                findings->atKey(Tag::EntryAtTopLevel, member,
                                QStringLiteral("%1 is a key of an entry, which is not read here: write "
                                               "\"entries\": [{%1: …}]")
                                    .arg(quoted(member.key)));
            } else {
                findings->claim(member);
            }
        }
    }
    return first != nullptr;
}
}

QVector<EntryRule> keyRules()
{
    return {keysOfFile, unknownKeys, unknownParams, misplacedParams, fromFile};
}

void checkTopLevel(const Document &document, Findings *findings)
{
    const Written &root = document.root;
    const bool hasEntryKeys = checkEntryKeys(root, findings);
    reportUnknown(root, KnownKeys::topLevel(), false, findings);
    const Written *entries = root.member(QLatin1String("entries"));
    const bool isEmpty = entries && entries->kind == Written::Array && entries->children.empty();
    const bool isMissing = !entries && !hasEntryKeys
                           && !misspeltMember(root, KnownKeys::topLevel(), QLatin1String("entries"));
    if (isEmpty || isMissing) {
        findings->atValue(Tag::NoEntries, entries ? *entries : root,
                          isEmpty ? QStringLiteral("\"entries\" is empty: the file declares nothing")
                                  : QStringLiteral("the file has no \"entries\" and declares nothing"));
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
