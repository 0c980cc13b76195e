// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/pendingreply.h"
#include "dbuspeer.h"
#include "text.h"

#include <QDBusConnection>
#include <QTest>

/// The replies to calls are handled once and in their order, whenever they arrive.
class PendingReplyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheOrderOfAnswers_data();
    void keepsTheOrderOfAnswers();
    void handlesEachAnswerOnce();
    void handlesNothingForTheDead();

private:
    DBusPeer m_peer{QDBusConnection::SessionBus, text("org.example.Peer"), text("/"), text("org.example.Peer")};
};

namespace
{
QDBusPendingCall call(const QString &method)
{
    return QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
        text("org.example.Peer"), text("/"), text("org.freedesktop.DBus.Peer"), method));
}

QDBusPendingCall answeredCall(const QString &method)
{
    QDBusPendingCall answered = call(method);
    answered.waitForFinished();
    return answered;
}
}

void PendingReplyTest::keepsTheOrderOfAnswers_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    for (const char *first : {"Ping", "NoSuchMethod"}) {
        for (const char *second : {"Ping", "NoSuchMethod"}) {
            QTest::addRow("%s, %s", first, second) << text(first) << text(second);
        }
    }
}

void PendingReplyTest::keepsTheOrderOfAnswers()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QStringList handled;
    QObject context;
    // As if the thread were delayed between the call and the wait for its reply.
    whenFinished(answeredCall(first), &context, [&](const QDBusPendingCall &) { handled.append(text("first")); });
    QDBusPendingCall later = call(second);
    whenFinished(later, &context, [&](const QDBusPendingCall &) { handled.append(text("second")); });
    later.waitForFinished();
    QTRY_COMPARE(handled, QStringList({text("first"), text("second")}));
}

void PendingReplyTest::handlesEachAnswerOnce()
{
    int handled = 0;
    QObject context;
    whenFinished(answeredCall(text("Ping")), &context, [&](const QDBusPendingCall &) { ++handled; });
    whenFinished(call(text("Ping")), &context, [&](const QDBusPendingCall &) { ++handled; });
    bool last = false;
    whenFinished(call(text("Ping")), &context, [&](const QDBusPendingCall &) { last = true; });
    QTRY_VERIFY(last);
    QCoreApplication::processEvents();
    QCOMPARE(handled, 2);
}

void PendingReplyTest::handlesNothingForTheDead()
{
    bool handled = false;
    {
        QObject context;
        whenFinished(answeredCall(text("Ping")), &context, [&](const QDBusPendingCall &) { handled = true; });
        whenFinished(call(text("Ping")), &context, [&](const QDBusPendingCall &) { handled = true; });
    }
    QObject context;
    bool last = false;
    whenFinished(call(text("Ping")), &context, [&](const QDBusPendingCall &) { last = true; });
    QTRY_VERIFY(last);
    QVERIFY(!handled);
}

QTEST_GUILESS_MAIN(PendingReplyTest)
#include "tst_pendingreply.moc"
