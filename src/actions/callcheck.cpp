// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/callcheck.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QRegularExpression>
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

/// Returns true when Qt takes @p service for the name of a service although it has no dot, which libdbus insists on.
bool hasMissingDot(const QString &service)
{
    static const QRegularExpression onePart(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z_-][A-Za-z0-9_-]{0,254}")));
    return onePart.match(service).hasMatch();
}

/// Returns true when libdbus ends the connection over the names. It looks at their beginning only.
bool isReserved(const QString &path, const QString &interface)
{
    return path.startsWith(QLatin1String(DBUS_PATH_LOCAL))
           || interface.startsWith(QLatin1String(DBUS_INTERFACE_LOCAL));
}

/// The type of @p value on the bus. Null for a null value, and for types of C++ that Qt cannot send.
const char *signatureOf(const QVariant &value)
{
    return QDBusMetaType::typeToSignature(value.userType());
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
            m_signature += int(qstrlen(signatureOf(argument)));
        }
        while (!m_pending.isEmpty() && error().isEmpty()) {
            add(m_pending.takeLast());
        }
    }

    QString error() const
    {
        if (m_signature > DBUS_MAXIMUM_SIGNATURE_LENGTH) {
            return QStringLiteral("There are too many arguments");
        }
        if (m_containers > MaxContainers) {
            return QStringLiteral("The arguments are nested too deeply");
        }
        if (m_holdsNull) {
            return QStringLiteral("The arguments hold a null");
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
            addList(value.value.toList(), value.containers + ContainersOfList);
            break;
        case QMetaType::QVariantMap:
        case QMetaType::QVariantHash:
            addMap(value.value.toMap(), value.containers + ContainersOfMap);
            break;
        case QMetaType::UnknownType:
        case QMetaType::Nullptr:
            m_holdsNull = true;
            break;
        default:
            // Qt would write the key alone, at which libdbus ends the process.
            m_isUnsendable = m_isUnsendable || (value.isInMap && !signatureOf(value.value));
            m_bytes += value.value.toString().toUtf8().size();
        }
    }

    void addList(const QVariantList &list, int containers)
    {
        for (const QVariant &element : list) {
            m_pending.append({element, containers, false});
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
    bool m_holdsNull = false;
    bool m_isUnsendable = false;
    qint64 m_bytes;
};

QString errorOf(const QDBusMessage &call)
{
    if (hasMissingDot(call.service())) {
        return QStringLiteral("The name of the service has no dot");
    }
    if (isReserved(call.path(), call.interface())) {
        return QStringLiteral("The path or the interface is reserved");
    }
    return CallSize(call).error();
}
}

QDBusError validateCall(const QDBusMessage &call)
{
    const QString error = errorOf(call);
    return error.isEmpty() ? QDBusError() : QDBusError(QDBusError::InvalidArgs, error);
}
