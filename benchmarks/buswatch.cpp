// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "buswatch.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStringList>

#include <utility>

namespace
{
constexpr int PatienceMs = 10000;
const QString s_bus = QStringLiteral("org.freedesktop.DBus");

/// The fields of a message in the output of dbus-monitor --profile.
enum Field { Type, Serial = 2, Sender, Destination, Path, AnsweredSerial = Path, Interface };

QString callId(const QString &sender, const QString &serial)
{
    return sender + QLatin1Char(' ') + serial;
}
}

BusWatch::BusWatch(QDBusConnection::BusType bus)
    : m_control(QDBusConnection::connectToBus(bus, QStringLiteral("watch of bus %1").arg(bus)))
{
    m_own.insert(m_control.baseService(), false);
    const bool isSystem = bus == QDBusConnection::SystemBus;
    m_monitor.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_monitor.start(
        QStringLiteral("dbus-monitor"),
        {isSystem ? QStringLiteral("--system") : QStringLiteral("--session"), QStringLiteral("--profile")});
    readUntil(QStringLiteral("NameLost")); // the bus takes the monitor's name
}

BusWatch::~BusWatch()
{
    m_monitor.kill();
    m_monitor.waitForFinished();
}

bool BusWatch::isAtRest()
{
    const int messages = m_messages;
    const QString mark = QStringLiteral("/look%1").arg(++m_looks);
    m_control.call(QDBusMessage::createMethodCall(s_bus, mark, QStringLiteral("org.freedesktop.DBus.Peer"),
                                                  QStringLiteral("Ping")));
    readUntil(mark);
    return m_messages == messages && m_unanswered.isEmpty();
}

QMap<QString, int> BusWatch::takeCalls()
{
    return std::exchange(m_calls, {});
}

/// Reads messages up to the one that has @p end as one of its fields.
void BusWatch::readUntil(const QString &end)
{
    QStringList message;
    while (!message.contains(end)) {
        if (!m_monitor.canReadLine() && !m_monitor.waitForReadyRead(PatienceMs)) {
            qFatal("dbus-monitor does not report the messages on the bus");
        }
        if (m_monitor.canReadLine()) {
            message = QString::fromUtf8(m_monitor.readLine()).trimmed().split(QLatin1Char('\t'));
            take(message);
        }
    }
}

void BusWatch::take(const QStringList &message)
{
    if (message.size() <= AnsweredSerial) {
        return; // a heading
    }
    const QString &type = message.at(Type);
    if (type == QLatin1String("mc") && isOwn(message.at(Sender))) {
        ++m_messages;
        ++m_calls[message.at(Interface)];
        // Many calls to the bus need no reply.
        if (message.at(Destination) != s_bus) {
            m_unanswered.insert(callId(message.at(Sender), message.at(Serial)));
        }
    } else if ((type == QLatin1String("mr") || type == QLatin1String("err")) && isOwn(message.at(Destination))) {
        ++m_messages;
        m_unanswered.remove(callId(message.at(Destination), message.at(AnsweredSerial)));
    }
}

bool BusWatch::isOwn(const QString &name)
{
    if (!m_own.contains(name)) {
        m_own.insert(name, m_control.interface()->servicePid(name) == uint(QCoreApplication::applicationPid()));
    }
    return m_own.value(name);
}
