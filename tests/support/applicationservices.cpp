// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationservices.h"

#include "applications.h"
#include "registry/pluginregistry.h"
#include "text.h"
#include "world.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDebug>
#include <QEventLoop>
#include <QFile>
#include <QTest>
#include <QTimer>

namespace
{
using Service = ApplicationServices::Service;

struct Address {
    QDBusConnection::BusType bus;
    QString service;
    QString path;
    QString interface;
};

struct Method {
    Service service;
    QByteArray signature;
    QByteArray result; ///< Python
    QByteArray resultSignature;
};

const std::map<Service, Address> s_addresses{
    {Service::Sandboxing,
     {QDBusConnection::SystemBus, text("org.orvantaos.tarnholdd1"), text("/org/orvantaos/tarnholdd1"),
      text("org.orvantaos.tarnholdd1")}},
    {Service::Autostart,
     {QDBusConnection::SystemBus, text("com.kelo.RuntimeManager"), text("/com/kelo/am"),
      text("com.kelo.am.Autostart")}},
    {Service::Notifications,
     {QDBusConnection::SessionBus, text("com.kelo.NotificationsConfig1"), text("/com/kelo/NotificationsConfig1"),
      text("com.kelo.NotificationsConfig1")}},
};

const std::map<QByteArray, Method> s_methods{
    {"GetAllowlist", {Service::Sandboxing, "u", "['a', 'x']", "as"}},
    {"SetAllowlist", {Service::Sandboxing, "uas", {}, ""}},
    {"GetAllowlistEnabled", {Service::Sandboxing, "u", "0", "i"}},
    {"SetAllowlistEnabled", {Service::Sandboxing, "ui", {}, ""}},
    {"GetAlwaysAllowedApplications", {Service::Sandboxing, "", "['b']", "as"}},
    {"GetAppInfo", {Service::Sandboxing, "s", "{'Mode': 'None'}", "a{sv}"}},
    {"SetShowPrompt", {Service::Sandboxing, "usi", {}, ""}},
    {"SetGrantedPermissions", {Service::Sandboxing, "usas", {}, ""}},
    {"GetEnabled", {Service::Autostart, "i", "['a', 'x']", "as"}},
    {"SetEnabled", {Service::Autostart, "isb", {}, ""}},
    {"getConfig", {Service::Notifications, "s", "{'enabled': True}", "a{sv}"}},
    {"getList", {Service::Notifications, "", "{}", "a{sv}"}},
    {"setEnabled", {Service::Notifications, "sb", {}, ""}},
};

QDBusConnection connectionTo(QDBusConnection::BusType bus)
{
    return bus == QDBusConnection::SystemBus ? QDBusConnection::systemBus() : QDBusConnection::sessionBus();
}

QString assignment(const QByteArray &result)
{
    return result.isEmpty() ? QString() : QLatin1String("ret = ") + QString::fromLatin1(result);
}

QDBusError error(const char *name, const QString &message)
{
    return QDBusError(QDBusMessage::createError(text(name), message));
}

/// Waits for a reply of each service. A service replies in order, and so does the bus for calls without a service.
void pingAll()
{
    QEventLoop loop;
    auto open = s_addresses.size();
    for (const auto &peer : s_addresses) {
        const Address &address = peer.second;
        auto *watcher = new QDBusPendingCallWatcher(
            connectionTo(address.bus)
                .asyncCall(QDBusMessage::createMethodCall(address.service, text("/"),
                                                          text("org.freedesktop.DBus.Peer"), text("Ping"))),
            &loop);
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &loop, [&] {
            if (--open == 0) {
                loop.quit();
            }
        });
    }
    QTimer limit; // is stopped at the end of this function, unlike QTimer::singleShot()
    QObject::connect(&limit, &QTimer::timeout, [] { qFatal("A service does not answer"); });
    limit.start(10000);
    loop.exec();
}
}

void ApplicationServices::reset()
{
    for (const auto &address : s_addresses) {
        const auto peer = m_peers.find(address.first);
        if (peer != m_peers.end() && peer->second->isOnBus()) {
            peer->second->resume();
        } else {
            start(address.first);
        }
    }
    const QSet<QByteArray> changed = m_changed;
    for (const QByteArray &method : changed) {
        answer(method, s_methods.at(method).result);
    }
    m_changed.clear();
    takeCalls();
}

DBusPeer &ApplicationServices::operator[](Service service)
{
    return *m_peers.at(service);
}

void ApplicationServices::answer(const QByteArray &method, const QByteArray &result, const QByteArray &signature)
{
    define(method, assignment(result), signature);
}

void ApplicationServices::answerInTurn(const QByteArray &method, const QByteArrayList &results)
{
    const QString turns = QString::fromLatin1(results.join(", "));
    define(method, text("ret = self.__dict__.setdefault('turns %1', [%2]).pop(0)").arg(++m_turns).arg(turns));
}

void ApplicationServices::prepare(const QByteArray &method, const char *code)
{
    define(method, text(code) + QLatin1Char('\n') + assignment(s_methods.at(method).result));
}

void ApplicationServices::spoil(const QByteArray &method, Fault fault)
{
    switch (fault) {
    case Refuses:
        define(method, text("raise dbus.exceptions.DBusException('no', name='com.kelo.Error')"));
        break;
    case AnswersAnotherType:
        answer(method, "{1.5: True}", "a{db}");
        break;
    case AnswersNothing:
        define(method, {}, "");
        break;
    case AnswersTooLate: // after the time-out of the buses, see CMakeLists.txt
        define(method, text("import time\ntime.sleep(2.4)\n") + assignment(s_methods.at(method).result));
        break;
    case Dies:
        define(method, text("os._exit(0)"));
        break;
    case IsMissing:
        stop(s_methods.at(method).service);
        break;
    }
}

void ApplicationServices::stop(Service service)
{
    m_peers.at(service)->kill();
}

void ApplicationServices::start(Service service)
{
    const Address &address = s_addresses.at(service);
    m_peers[service].reset();
    m_peers[service] = std::make_unique<DBusPeer>(address.bus, address.service, address.path, address.interface);
    for (const auto &method : s_methods) {
        if (method.second.service == service) {
            answer(method.first, method.second.result);
        }
    }
}

void ApplicationServices::settle() const
{
    pingAll();
    pingAll(); // the reply to a call may cause another call, whose reply causes none
    pingAll(); // the calls of a service that dies fail in any order
}

QStringList ApplicationServices::takeCalls()
{
    settle();
    const QStringList calls = journal();
    const QStringList fresh = calls.mid(m_taken);
    m_taken = calls.size();
    return fresh;
}

QStringList ApplicationServices::journal() const
{
    QFile file(m_directory.filePath(text("journal")));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void ApplicationServices::define(const QByteArray &method, const QString &code, const QByteArray &signature)
{
    m_changed.insert(method);
    const Method &known = s_methods.at(method);
    const QString keep = text("import json, os, signal\n"
                              "sent = dbus.lowlevel.Message.guess_signature(*m_args)\n"
                              "values = json.dumps(m_args)[1:-1].replace('\"', \"'\")\n"
                              "with open('%1', 'a') as journal:\n"
                              "    journal.write(f'{dbus_method}({values}) {sent}'.rstrip() + '\\n')\n")
                             .arg(m_directory.filePath(text("journal")));
    m_peers.at(known.service)
        ->addMethod(QString::fromLatin1(method), QString::fromLatin1(known.signature), keep + code,
                    QString::fromLatin1(signature.isNull() ? known.resultSignature : signature));
}

void faults(const char *method)
{
    using Fault = ApplicationServices::Fault;
    const Method &known = s_methods.at(method);
    const QString expected = QString::fromLatin1(known.resultSignature);
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<QDBusError>("error");
    QTest::newRow("refuses") << Fault::Refuses << error("com.kelo.Error", text("no"));
    if (!expected.isEmpty()) {
        const QString unexpected = text("Unexpected reply signature: got \"%1\", expected \"%2\"");
        const char *name = "org.freedesktop.DBus.Error.InvalidSignature";
        QTest::newRow("answers with another type")
            << Fault::AnswersAnotherType << error(name, unexpected.arg(text("a{db}"), expected));
        QTest::newRow("answers with nothing")
            << Fault::AnswersNothing << error(name, unexpected.arg(QString(), expected));
    }
    QTest::newRow("answers too late") << Fault::AnswersTooLate
                                      << error("org.freedesktop.DBus.Error.NoReply",
                                               text("Message did not receive a reply (timeout by message bus)"));
    QTest::newRow("dies in the call")
        << Fault::Dies
        << error("org.freedesktop.DBus.Error.NoReply",
                 text("Message recipient disconnected from message bus without replying"));
    QTest::newRow("is missing") << Fault::IsMissing
                                << error("org.freedesktop.DBus.Error.ServiceUnknown",
                                         text("The name %1 was not provided by any .service files")
                                             .arg(s_addresses.at(known.service).service));
}

void writeThreeApplications(const Applications &applications)
{
    World::reset();
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "applications"}]})");
    World::rescan(PluginRegistry::instance());
    for (const char *id : {"a", "b", "c"}) {
        const QByteArray file = QByteArray("first/") + id + ".desktop";
        applications.write(file.constData(), application(QByteArray(id).toUpper()));
    }
}

void writeNotifyingApplications(const Applications &applications)
{
    writeThreeApplications(applications);
    for (const char *id : {"a", "b"}) {
        const QByteArray file = QByteArray("first/") + id + ".desktop";
        applications.write(file.constData(), application(QByteArray(id).toUpper(),
                                                         QByteArray("X-DBus-ServiceName=com.example.") + id));
    }
}

ServedModel::ServedModel(ApplicationServices *services, int mode)
{
    setUid(1000);
    componentComplete();
    setFilterMode(mode);
    services->takeCalls();
    takeSignals();
}

QStringList ServedModel::takeSignals()
{
    return m_signals.take();
}

QVariantList ServedModel::column(ApplicationRoles role) const
{
    QVariantList values;
    for (int row = 0; row < rowCount(); ++row) {
        values.append(index(row).data(role));
    }
    return values;
}

QStringList allowlistAnnouncement()
{
    return texts({"allowlistChanged", "selectedAppsChanged", "dataChanged 0-2"});
}

QStringList notificationAnnouncement(const char *row)
{
    return QStringList(text("dataChanged ") + text(row))
           + texts({"allowedNotificationsChanged", "selectedAppsChanged"});
}

QString debugText(const QDBusError &error)
{
    QString text;
    QDebug(&text).nospace() << error;
    return text;
}

QString unquotedText(const QDBusError &error)
{
    QString text;
    QDebug(&text).nospace().noquote() << error;
    return text;
}

QString warning(const QString &message)
{
    return text("warning org.orvantaos.settings.framework: ") + message;
}

QStringList incorrectUid(int times)
{
    QStringList warnings;
    for (int i = 0; i < times; ++i) {
        warnings.append(warning(text("Incorrect uid 0")));
    }
    return warnings;
}

QStringList texts(std::initializer_list<const char *> latin1)
{
    QStringList list;
    for (const char *item : latin1) {
        list.append(text(item));
    }
    return list;
}
