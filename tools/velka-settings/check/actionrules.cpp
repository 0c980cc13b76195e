// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/callcheck.h"
#include "knownkeys.h"
#include "registry/jsonvariant.h"
#include "rules.h"

#include <QDBusError>
#include <QDBusMessage>

namespace Check
{
namespace
{
/// The parts of a call. D-Bus accepts the defaults.
struct Call {
    QString service = QStringLiteral("a.a");
    QString path = QStringLiteral("/a");
    QString interface = QStringLiteral("a.a");
    QString method = QStringLiteral("a");
    QVariantList arguments;
};

struct NameKey {
    const char *key;
    Tag tag;
    QString Call::*part;
    bool isRequired;
};

constexpr NameKey s_names[] = {{"remote-service", Tag::DBusService, &Call::service, true},
                               {"remote-path", Tag::DBusPath, &Call::path, true},
                               {"remote-interface", Tag::DBusInterface, &Call::interface, false},
                               {"remote-method", Tag::DBusMethod, &Call::method, true}};

QString refusalOf(const Call &call)
{
    QDBusMessage message = QDBusMessage::createMethodCall(call.service, call.path, call.interface, call.method);
    message.setArguments(call.arguments);
    const QDBusError error = ::objectionTo(message);
    return error.isValid() ? error.message() : QString();
}

bool isAction(const Entry &entry)
{
    return entry.type == QLatin1String("action");
}

void actionNames(const Entry &entry, Findings *findings)
{
    if (!isAction(entry)) {
        return;
    }
    const Written *params = entry.writtenParams;
    for (const NameKey &name : s_names) {
        const Written *value = params ? params->member(QLatin1String(name.key)) : nullptr;
        Call call;
        call.*name.part = readString(entry.params, QLatin1String(name.key));
        if ((call.*name.part).isEmpty()) {
            if (name.isRequired) {
                const Written &place = value ? *value : params ? *params : *entry.written;
                findings->atValue(
                    Tag::ActionIncomplete, place,
                    QStringLiteral("an action needs \"%1\" in \"params\"").arg(QLatin1String(name.key)));
            }
            continue;
        }
        const QString refusal = refusalOf(call);
        if (!refusal.isEmpty()) {
            findings->atValue(
                name.tag, *value,
                QStringLiteral("D-Bus refuses %1: %2").arg(quoted(call.*name.part), abridged(refusal)));
        }
    }
}

/// Returns whether @p arguments contain a null at any level.
bool holdsNull(const Written &arguments)
{
    std::vector<const Written *> pending{&arguments};
    while (!pending.empty()) {
        const Written *value = pending.back();
        pending.pop_back();
        if (value->kind == Written::Null) {
            return true;
        }
        for (const Written &child : value->children) {
            pending.push_back(&child);
        }
    }
    return false;
}

void actionArguments(const Entry &entry, Findings *findings)
{
    const Written *params = entry.writtenParams;
    const Written *arguments = params ? params->member(QLatin1String("remote-arguments")) : nullptr;
    if (!isAction(entry) || !arguments || arguments->kind == Written::Null) {
        return;
    }
    if (arguments->kind != Written::Array) {
        findings->atValue(Tag::ArgumentsLost, *arguments,
                          QStringLiteral("the arguments are not an array and are lost"));
        return;
    }
    if (holdsNull(*arguments)) {
        findings->atValue(Tag::ArgumentNull, *arguments, QStringLiteral("null cannot be sent"));
        return;
    }
    Call call;
    call.arguments = jsonToVariant(entry.params.value(QLatin1String("remote-arguments"))).toList();
    const QString refusal = refusalOf(call);
    if (!refusal.isEmpty()) {
        findings->atValue(Tag::ArgumentsRefused, *arguments, refusal);
    }
    for (const Written &argument : arguments->children) {
        if (argument.kind == Written::Integer) {
            findings->atValue(Tag::ArgumentNumber, argument, QStringLiteral("this number is sent as a double"));
        }
    }
}

void callWithoutAction(const Entry &entry, Findings *findings)
{
    if (isAction(entry) || !entry.writtenParams) {
        return;
    }
    for (const NameKey &name : s_names) {
        if (const Written *value = entry.writtenParams->member(QLatin1String(name.key))) {
            findings->atKey(
                Tag::NotAnAction, *value,
                QStringLiteral("\"%1\" is only read for the type \"action\"").arg(QLatin1String(name.key)));
            return;
        }
    }
}
}

QVector<EntryRule> actionRules()
{
    return {actionNames, actionArguments, callWithoutAction};
}
}
