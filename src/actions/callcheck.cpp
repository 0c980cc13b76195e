// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/callcheck.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QVariant>
#include <QVector>

#include <dbus/dbus.h>

namespace
{
// D-Bus allows 64 containers in each other. In a list each level is an array and a variant, in a map a dictionary
// entry besides.
constexpr int MaxContainers = 64;
constexpr int ContainersOfList = 2;
constexpr int ContainersOfMap = 3;
// Half of what a message bus takes by default
constexpr qint64 MaxBytes = qint64(16) * 1024 * 1024;
// The most that a value of fixed size and a variant around it take, with all padding
constexpr int BytesOfValue = 24;

QString nameObjection(const QString &name, dbus_bool_t (*validate)(const char *, DBusError *))
{
    if (name.contains(QChar(QChar::Null))) {
        return QStringLiteral("A name contains a null character");
    }
    DBusError error = DBUS_ERROR_INIT;
    if (validate(name.toUtf8().constData(), &error)) {
        return {};
    }
    QString text = QString::fromUtf8(error.message);
    dbus_error_free(&error);
    return text;
}

QString namesObjection(const QDBusMessage &call)
{
    QString objection = nameObjection(call.service(), dbus_validate_bus_name);
    if (objection.isEmpty()) {
        objection = nameObjection(call.path(), dbus_validate_path);
    }
    if (objection.isEmpty() && !call.interface().isEmpty()) { // a call may do without
        objection = nameObjection(call.interface(), dbus_validate_interface);
    }
    if (objection.isEmpty()) {
        objection = nameObjection(call.member(), dbus_validate_member);
    }
    if (objection.isEmpty()
        && (call.path().startsWith(QLatin1String(DBUS_PATH_LOCAL))
            || call.interface().startsWith(QLatin1String(DBUS_INTERFACE_LOCAL)))) {
        objection = QStringLiteral("The path or the interface is reserved");
    }
    return objection;
}

int signatureLength(const QVariant &argument)
{
    switch (argument.userType()) {
    case QMetaType::QVariantList:
        return int(qstrlen("av"));
    case QMetaType::QVariantMap:
        return int(qstrlen("a{sv}"));
    default:
        return 1;
    }
}

/// Walks all that lists and maps hold, and adds up what the call takes.
class CallSize
{
public:
    explicit CallSize(const QDBusMessage &call)
        : m_bytes(call.path().size())
    {
        const QVariantList arguments = call.arguments();
        for (const QVariant &argument : arguments) {
            m_pending.append({argument, 0, false});
            m_signature += signatureLength(argument);
        }
        while (!m_pending.isEmpty() && objection().isEmpty()) {
            add(m_pending.takeLast());
        }
    }

    QString objection() const
    {
        if (m_signature > DBUS_MAXIMUM_SIGNATURE_LENGTH) {
            return QStringLiteral("There are too many arguments");
        }
        if (m_containers > MaxContainers) {
            return QStringLiteral("The arguments are nested too deeply");
        }
        if (m_isUnsendable) {
            return QStringLiteral("A map holds a value that cannot be sent");
        }
        if (m_bytes > MaxBytes) {
            return QStringLiteral("The call is too large");
        }
        return {};
    }

private:
    struct Value {
        QVariant value;
        int containers; ///< around it
        bool isInMap;
    };

    void add(const Value &value)
    {
        m_containers = qMax(m_containers, value.containers);
        m_bytes += BytesOfValue;
        switch (value.value.userType()) {
        case QMetaType::QVariantList:
            addList(value.value.toList(), value.containers + ContainersOfList, value.isInMap);
            break;
        case QMetaType::QVariantMap:
            addMap(value.value.toMap(), value.containers + ContainersOfMap);
            break;
        case QMetaType::UnknownType:
        case QMetaType::Nullptr:
            // Qt leaves the key without a value, at which libdbus ends the process.
            m_isUnsendable = m_isUnsendable || value.isInMap;
            break;
        default:
            m_bytes += value.value.toString().toUtf8().size();
        }
    }

    void addList(const QVariantList &list, int containers, bool isInMap)
    {
        for (const QVariant &element : list) {
            m_pending.append({element, containers, isInMap});
        }
    }

    void addMap(const QVariantMap &map, int containers)
    {
        for (auto it = map.cbegin(); it != map.cend(); ++it) {
            m_bytes += BytesOfValue + it.key().toUtf8().size();
            m_pending.append({it.value(), containers, true});
        }
    }

    QVector<Value> m_pending;
    int m_signature = 0;
    int m_containers = 0;
    bool m_isUnsendable = false;
    qint64 m_bytes;
};
}

QDBusError objectionTo(const QDBusMessage &call)
{
    QString objection = namesObjection(call);
    if (objection.isEmpty()) {
        objection = CallSize(call).objection();
    }
    return objection.isEmpty() ? QDBusError() : QDBusError(QDBusError::InvalidArgs, objection);
}
