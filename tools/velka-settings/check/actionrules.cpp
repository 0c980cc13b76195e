// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/callcheck.h"
#include "knownkeys.h"
#include "registry/jsonvariant.h"
#include "rules.h"
#include "valuetext.h"

#include <QDBusError>
#include <QDBusMessage>

#include <dbus/dbus.h>

#include <algorithm>

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
    dbus_bool_t (*validate)(const char *name, DBusError *error);
    bool isRequired;
    const char *form; ///< of valid names
};

constexpr NameKey s_names[] = {{"remote-service", Tag::DBusService, &Call::service, dbus_validate_bus_name, true,
                                "a service is two or more names joined by dots, such as com.example.torch"},
                               {"remote-path", Tag::DBusPath, &Call::path, dbus_validate_path, true,
                                "an object path is a path such as /com/example/torch"},
                               {"remote-interface", Tag::DBusInterface, &Call::interface, dbus_validate_interface,
                                false,
                                "an interface is two or more names joined by dots, such as com.example.torch"},
                               {"remote-method", Tag::DBusMethod, &Call::method, dbus_validate_member, true,
                                "a method is one name of ASCII letters, digits and underscores, such as toggle"}};

/// Returns why @p call is never sent. Empty when it is.
QString callError(const Call &call)
{
    QDBusMessage message = QDBusMessage::createMethodCall(call.service, call.path, call.interface, call.method);
    message.setArguments(call.arguments);
    const QDBusError error = validateCall(message);
    return error.isValid() ? error.message() : QString();
}

/// Returns what is wrong with the name of @p call that @p key stands for. Empty when a bus takes it.
QString nameError(const Call &call, const NameKey &key)
{
    const QString name = call.*key.part;
    if (name.contains(QChar(QChar::Null))) {
        return QStringLiteral("A name contains a null character");
    }
    DBusError error = DBUS_ERROR_INIT;
    if (key.validate(name.toUtf8().constData(), &error)) {
        return callError(call);
    }
    dbus_error_free(&error);
    return QLatin1String(key.form);
}

bool isAction(const Entry &entry)
{
    return entry.type == QLatin1String("action");
}

/// Returns whether the names may be at a place that another rule reports.
bool areNamesElsewhere(const Entry &entry)
{
    const Written *params = entry.written->member(QLatin1String("params"));
    return (params && params->kind != Written::Object)
           || misspeltMember(*entry.written, KnownKeys::entry(), QLatin1String("params"))
           || std::any_of(entry.written->children.cbegin(), entry.written->children.cend(),
                          [](const Written &member) { return KnownKeys::action().contains(member.key); });
}

/// Reports all @p names that an action needs and does not have.
void reportMissingNames(const Entry &entry, const QStringList &names, const Written &place, Findings *findings)
{
    if (!names.isEmpty() && !areNamesElsewhere(entry)) {
        findings->atValue(
            Tag::ActionIncomplete, place,
            QStringLiteral("an action needs %1 in \"params\"").arg(names.join(QStringLiteral(", "))));
    }
}

void actionNames(const Entry &entry, Findings *findings)
{
    if (!isAction(entry)) {
        return;
    }
    const Written *params = entry.writtenParams;
    QStringList missing;
    for (const NameKey &name : s_names) {
        const QLatin1String key(name.key);
        const Written *value = params ? params->member(key) : nullptr;
        const Written *misspelt = params ? misspeltMember(*params, KnownKeys::params(), key) : nullptr;
        Call call;
        call.*name.part = readString(entry.params, key);
        if ((call.*name.part).isEmpty()) {
            if (name.isRequired && misspelt) {
                findings->atKey(Tag::ActionIncomplete, *misspelt,
                                QStringLiteral("an action needs \"%1\": %2 seems to be misspelt")
                                    .arg(key, quoted(misspelt->key)));
            } else if (name.isRequired && value) {
                reportMissingNames(entry, {quoted(key)}, *value, findings);
            } else if (name.isRequired) {
                missing.append(quoted(key));
            }
            continue;
        }
        const QString error = nameError(call, name);
        if (!error.isEmpty()) {
            findings->atValue(
                name.tag, *value,
                QStringLiteral("D-Bus refuses %1: %2").arg(quoted(call.*name.part), abridged(error)));
        }
    }
    reportMissingNames(entry, missing, params ? *params : *entry.written, findings);
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
                          QStringLiteral("\"remote-arguments\" must be an array, not %1; the library sends no "
                                         "arguments")
                              .arg(describe(entry.params.value(QLatin1String("remote-arguments")))));
        return;
    }
    if (holdsNull(*arguments)) {
        findings->atValue(Tag::ArgumentNull, *arguments,
                          QStringLiteral("D-Bus has no null: remove the argument, or send an empty string"));
        return;
    }
    Call call;
    call.arguments = jsonToVariant(entry.params.value(QLatin1String("remote-arguments"))).toList();
    const QString error = callError(call);
    if (!error.isEmpty()) {
        findings->atValue(Tag::ArgumentsRefused, *arguments,
                          QStringLiteral("D-Bus refuses the call: %1").arg(error));
    }
    for (const Written &argument : arguments->children) {
        if (argument.kind == Written::Integer) {
            findings->atValue(
                Tag::ArgumentNumber, argument,
                QStringLiteral("this number is sent as a double, not as an integer: write 1.0 if the method takes "
                               "a double"));
        }
    }
}

void callWithoutAction(const Entry &entry, Findings *findings)
{
    if (isAction(entry) || !entry.writtenParams || hasUnclearType(entry)) {
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
