// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dbuspeer.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QTest>

#include <csignal>

namespace
{
// The Python for which Debian's modules are installed; another one may be first in the PATH.
const QString s_python = QStringLiteral("/usr/bin/python3");
// The mock itself only keeps arguments that it has converted to the method's signature.
const QString s_keepSignature = QStringLiteral(
    "self.call_log[-1][2].insert(0, str(dbus.lowlevel.Message.guess_signature(*m_args)))\n");

QString option(QDBusConnection::BusType bus)
{
    return bus == QDBusConnection::SystemBus ? QStringLiteral("--system") : QStringLiteral("--session");
}
}

DBusPeer::DBusPeer(QDBusConnection::BusType bus, const QString &service, const QString &path,
                   const QString &interface)
    : m_service(service)
    , m_path(path)
    , m_interface(interface)
    , m_bus(QDBusConnection::connectToBus(bus, QStringLiteral("peers") + option(bus)))
{
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(s_python,
                    {QStringLiteral("-m"), QStringLiteral("dbusmock"), option(bus), service, path, interface});
    if (!QTest::qWaitFor([this] { return isOnBus(); }, 10000)) {
        qFatal("%s does not come to the bus", qPrintable(service));
    }
}

DBusPeer::~DBusPeer()
{
    kill();
}

void DBusPeer::addMethod(const QString &method, const QString &signature, const QString &code,
                         const QString &resultSignature)
{
    control(QStringLiteral("AddMethod"),
            {m_interface, method, signature, resultSignature, s_keepSignature + code});
}

QList<QVariantList> DBusPeer::calls(const QString &method)
{
    const QVariantList result = control(QStringLiteral("GetMethodCalls"), {method});
    const auto log = result.value(0).value<QDBusArgument>();
    QList<QVariantList> calls;
    log.beginArray();
    while (!log.atEnd()) {
        qulonglong time = 0;
        QVariantList call;
        log.beginStructure();
        log >> time >> call;
        log.endStructure();
        calls.append(unwrapped(call).toList());
    }
    log.endArray();
    return calls;
}

bool DBusPeer::isOnBus() const
{
    return m_bus.interface()->isServiceRegistered(m_service);
}

void DBusPeer::emitSignal(const QString &signal, const QString &signature, const QVariantList &arguments)
{
    control(QStringLiteral("EmitSignal"), {m_interface, signal, signature, QVariant(arguments)});
}

qint64 DBusPeer::processId() const
{
    return m_process.processId();
}

void DBusPeer::suspend()
{
    ::kill(pid_t(m_process.processId()), SIGSTOP);
}

void DBusPeer::resume()
{
    ::kill(pid_t(m_process.processId()), SIGCONT);
}

void DBusPeer::kill()
{
    m_process.kill();
    m_process.waitForFinished();
    if (!QTest::qWaitFor([this] { return !isOnBus(); })) {
        qFatal("%s does not leave the bus", qPrintable(m_service));
    }
}

QVariantList DBusPeer::control(const QString &method, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(m_service, m_path,
                                                       QStringLiteral("org.freedesktop.DBus.Mock"), method);
    call.setArguments(arguments);
    const QDBusMessage reply = m_bus.call(call);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        qFatal("%s of %s: %s", qPrintable(method), qPrintable(m_service), qPrintable(reply.errorMessage()));
    }
    return reply.arguments();
}

QVariant unwrapped(const QVariant &value)
{
    if (value.userType() == QMetaType::QVariantList) {
        QVariantList list = value.toList();
        for (QVariant &element : list) {
            element = unwrapped(element);
        }
        return list;
    }
    if (value.userType() == QMetaType::QVariantMap) {
        QVariantMap map = value.toMap();
        for (QVariant &element : map) {
            element = unwrapped(element);
        }
        return map;
    }
    if (value.userType() != qMetaTypeId<QDBusArgument>()) {
        return value;
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() == QLatin1String("av")) {
        return unwrapped(qdbus_cast<QVariantList>(argument));
    }
    if (argument.currentSignature() == QLatin1String("a{sv}")) {
        return unwrapped(qdbus_cast<QVariantMap>(argument));
    }
    return value;
}
