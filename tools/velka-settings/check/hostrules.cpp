// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostvocabulary.h"
#include "knownkeys.h"
#include "rules.h"
#include "valuetext.h"

namespace Check
{
namespace
{
bool isOfApplication(const Entry &entry)
{
    return entry.names.value(0) == QLatin1String("applications");
}

QString jsonTypeOf(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return QStringLiteral("boolean");
    case QJsonValue::Double:
        return QStringLiteral("number");
    case QJsonValue::Array:
        return QStringLiteral("array");
    case QJsonValue::Object:
        return QStringLiteral("object");
    default:
        return QStringLiteral("string");
    }
}

void hostType(const Entry &entry, Findings *findings)
{
    const Written *const written = entry.written->member(QLatin1String("type"));
    if (!written || findings->hasAt(*written) || entry.vocabulary->types().contains(entry.type)) {
        return;
    }
    findings->atValue(Tag::HostType, *written,
                      QStringLiteral("the host does not show entries of the type %1, only of %2")
                          .arg(quoted(entry.type), entry.vocabulary->types().join(QStringLiteral(", "))));
}

void hostPlace(const Entry &entry, Findings *findings)
{
    const QStringList root = entry.vocabulary->root();
    if (!entry.writtenPath || findings->hasAt(*entry.writtenPath) || isOfApplication(entry)) {
        return;
    }
    const int common = qMin(root.size(), entry.names.size());
    const int depth = entry.names.size() - root.size();
    const QString place = root.isEmpty() ? QStringLiteral("the root") : quoted(root.join(QLatin1Char('/')));
    if (entry.names.mid(0, common) != root.mid(0, common)) {
        findings->atValue(Tag::HostPlace, *entry.writtenPath,
                          QStringLiteral("the host shows only entries below %1").arg(place));
    } else if (entry.vocabulary->depth() > 0 && depth > entry.vocabulary->depth()) {
        findings->atValue(Tag::HostDepth, *entry.writtenPath,
                          QStringLiteral("the host shows only %1 levels below %2, this is level %3")
                              .arg(entry.vocabulary->depth())
                              .arg(place)
                              .arg(depth));
    }
}

void hostKeys(const Entry &entry, Findings *findings)
{
    const QStringList ignored = entry.vocabulary->ignoredKeys();
    for (const Written &member : entry.written->children) {
        if (ignored.contains(member.key) && !findings->hasAtKey(member)) {
            findings->atKey(Tag::HostKey, member, QStringLiteral("the host ignores %1").arg(quoted(member.key)));
        }
    }
}

void hostParam(const Entry &entry, const Written &param, Findings *findings)
{
    const QJsonObject known = entry.vocabulary->paramsOf(entry.type);
    const QJsonValue value = entry.params.value(param.key);
    const QString type = known.value(param.key).toObject().value(QLatin1String("type")).toString();
    if (type.isEmpty()) {
        findings->atKey(Tag::HostParam, param,
                        QStringLiteral("the host reads no %1 in \"params\" of the type %2")
                            .arg(quoted(param.key), quoted(entry.type)));
    } else if (jsonTypeOf(value) != type) {
        findings->atValue(Tag::HostParam, param,
                          QStringLiteral("the host reads %1 as a value of the type %2, not %3")
                              .arg(quoted(param.key), type, describe(value)));
    }
}

/// Checks the params that the library does not know.
void hostParams(const Entry &entry, Findings *findings)
{
    if (!entry.writtenParams || !entry.vocabulary->types().contains(entry.type)) {
        return;
    }
    const QStringList &ofTheLibrary = KnownKeys::params();
    for (const Written &param : entry.writtenParams->children) {
        if (!ofTheLibrary.contains(param.key) && !findings->hasAtKey(param) && !findings->hasAt(param)) {
            hostParam(entry, param, findings);
        }
    }
}
}

QVector<EntryRule> hostRules()
{
    return {hostType, hostPlace, hostKeys, hostParams};
}
}
