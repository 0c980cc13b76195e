// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/callcheck.h"

#include "common/messagesize.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QRegularExpression>
#include <QVariant>
#include <QVector>

#include <dbus/dbus.h>

namespace
{
// D-Bus allows 64 containers in each other. In a list each level is an array and a variant; in a map it also is
// a dictionary entry.
constexpr int MaxContainers = 64;
constexpr int ContainersOfList = 2;
constexpr int ContainersOfMap = 3;

/// Returns true if Qt accepts @p service as the name of a service although it has no dot, which libdbus requires.
bool hasMissingDot(const QString &service)
{
    static const QRegularExpression onePart(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z_-][A-Za-z0-9_-]{0,254}")));
    return onePart.match(service).hasMatch();
}

/// Returns true if libdbus ends the connection because of the names. It only compares their beginning.
bool isReserved(const QString &path, const QString &interface)
{
    return path.startsWith(QLatin1String(DBUS_PATH_LOCAL))
           || interface.startsWith(QLatin1String(DBUS_INTERFACE_LOCAL));
}

/// Returns the type of @p value on the bus. Null for a null value, and for types of C++ that Qt cannot send.
const char *signatureOf(const QVariant &value)
{
    return QDBusMetaType::typeToSignature(value.userType());
}

/// Measures all values of a call, also those in lists and maps, in the order in which they are written.
class CallSize
{
public:
    explicit CallSize(const QDBusMessage &call)
        : m_headerBytes(call.path().size())
    {
        const QVariantList arguments = call.arguments();
        for (const QVariant &argument : arguments) {
            m_signature += int(qstrlen(signatureOf(argument)));
        }
        push(arguments, Place::Argument, 0);
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
        if (m_headerBytes + m_bytes > MaxMessageBytes) {
            return QStringLiteral("The call is too large");
        }
        return {};
    }

private:
    enum class Place { Argument, List, Map };
    struct Value {
        Place place;
        QVariant value;
        int containers; ///< around it
        QString key; ///< in a map
    };

    void push(const QVariantList &values, Place place, int containers)
    {
        for (auto it = values.crbegin(); it != values.crend(); ++it) {
            m_pending.append({place, *it, containers, {}});
        }
    }

    void push(const QVariantMap &map, int containers)
    {
        for (auto it = map.cend(); it != map.cbegin();) {
            --it;
            m_pending.append({Place::Map, it.value(), containers, it.key()});
        }
    }

    void add(const Value &value)
    {
        m_containers = qMax(m_containers, value.containers);
        if (value.place == Place::Map) {
            addKey(value);
        }
        if (value.place != Place::Argument) {
            m_bytes += 1 + qstrlen(signatureOf(value.value)) + 1; // a variant begins with the type
        }
        addContent(value);
    }

    void addKey(const Value &value)
    {
        align(8);
        addText(value.key);
        // Qt would write the key alone, at which libdbus ends the process.
        m_isUnsendable = m_isUnsendable || !signatureOf(value.value);
    }

    void addContent(const Value &value)
    {
        switch (value.value.userType()) {
        case QMetaType::QVariantList:
            addNumber(4);
            push(value.value.toList(), Place::List, value.containers + ContainersOfList);
            break;
        case QMetaType::QVariantMap:
        case QMetaType::QVariantHash:
            addNumber(4);
            align(8);
            push(value.value.toMap(), value.containers + ContainersOfMap);
            break;
        default:
            addScalar(value.value);
        }
    }

    void addScalar(const QVariant &value)
    {
        switch (value.userType()) {
        case QMetaType::Bool:
            addNumber(4);
            break;
        case QMetaType::Double:
            addNumber(8);
            break;
        case QMetaType::UnknownType:
        case QMetaType::Nullptr:
            m_holdsNull = true;
            break;
        default:
            addText(value.toString());
        }
    }

    void addText(const QString &text)
    {
        addNumber(4);
        m_bytes += text.toUtf8().size() + 1;
    }

    void addNumber(int size)
    {
        align(size);
        m_bytes += size;
    }

    void align(int size)
    {
        m_bytes = (m_bytes + size - 1) / size * size;
    }

    QVector<Value> m_pending; ///< the next one last
    int m_signature = 0;
    int m_containers = 0;
    bool m_holdsNull = false;
    bool m_isUnsendable = false;
    const qint64 m_headerBytes;
    qint64 m_bytes = 0;
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
