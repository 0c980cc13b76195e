// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "quickactions.h"

#include "actions/quickactionreader.h"
#include "messagelog.h"
#include "printable.h"
#include "text.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QSignalSpy>
#include <QTest>

namespace QuickActions
{
namespace
{
/// Returns @p message, which has place markers for the names of a call, with the names of @p action.
QString withNames(const char *message, const QVariantMap &action)
{
    const auto name = [&action](const char *key) { return printable(action.value(text(key)).toString()); };
    return logged(text(message).arg(name("remote-service"), name("remote-path"), name("remote-interface"),
                                    name("remote-method")));
}
}

QVariantMap actionOf(const QString &service)
{
    return {{text("remote-service"), service},
            {text("remote-path"), s_path},
            {text("remote-interface"), s_interface},
            {text("remote-method"), s_method}};
}

QVariantMap actionOf(const QString &service, const QString &package)
{
    return with(actionOf(service), "requires-package", package);
}

QVariantMap with(QVariantMap action, const char *key, const QVariant &value)
{
    action.insert(text(key), value);
    return action;
}

QString logged(const QString &message)
{
    return text("info default: <Unknown File>: QML QuickActionReader: ") + message;
}

QString failure(const QVariantMap &action, const QString &error)
{
    return withNames("Failed to send dbus call to: service=%1 path=%2 interface=%3 method=%4. Error was: ", action)
           + printable(error);
}

QString unknownFailure(const QString &service)
{
    return failure(
        actionOf(service),
        text("org.freedesktop.DBus.Error.ServiceUnknown The name %1 was not provided by any .service files")
            .arg(service));
}

QString queueFailure(const QVariantMap &action, const QString &message)
{
    return withNames("Failed to initialize dbus call to: service=%1 path=%2 interface=%3 method=%4. Error was: ",
                     action)
           + text("org.freedesktop.DBus.Error.InvalidArgs ") + message + text(" %6");
}

void settle()
{
    QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(
        QDBusMessage::createMethodCall(text("org.freedesktop.DBus"), text("/org/freedesktop/DBus"),
                                       text("org.freedesktop.DBus"), text("GetId"))));
    QSignalSpy finished(&watcher, &QDBusPendingCallWatcher::finished);
    QVERIFY(finished.wait());
    QVERIFY(!watcher.isError());
}

void settleFailures()
{
    settle();
    settle();
}

QString raise(const QString &error, const QString &message)
{
    return text("raise dbus.exceptions.DBusException('%1', name='%2')").arg(message, error);
}

Target::Target(const QString &service, const QString &code, const QString &signature,
               const QString &resultSignature)
    : DBusPeer(QDBusConnection::SessionBus, service, s_path, s_interface)
{
    addMethod(s_method, signature, code, resultSignature);
}

QList<QVariantList> Target::calls()
{
    return DBusPeer::calls(s_method);
}

Store::Store()
    : DBusPeer(QDBusConnection::SessionBus, text("com.velka.velkastore"), text("/StoreClient"),
               text("com.velka.velkastore"))
{
    addMethod(text("showApp"), text("s"));
}

QList<QVariantList> Store::calls()
{
    return DBusPeer::calls(text("showApp"));
}

QStringList messagesOf(const QVector<QVariantMap> &actions, Target *target)
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    for (const QVariantMap &action : actions) {
        reader.trigger(action);
    }
    settle();
    if (target) {
        target->calls(); // returns when the target has replied to all of them
    }
    settleFailures();
    return log.take();
}

QList<QVariantList> noCalls()
{
    return {};
}

QVariantList callFor(const QString &package)
{
    return {text("s"), package};
}

QVariant inLists(int depth, QVariant value)
{
    for (int i = 0; i < depth; ++i) {
        value = QVariantList{value};
    }
    return value;
}
}
