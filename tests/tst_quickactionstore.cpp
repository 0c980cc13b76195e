// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "messagelog.h"
#include "quickactions.h"
#include "text.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QTest>

using namespace QuickActions;

/// The errors after which the reader asks the store for a package, and the package.
class QuickActionStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingServiceBringsTheStore_data();
    void missingServiceBringsTheStore();
    void badNamesDoNotBringTheStore_data();
    void badNamesDoNotBringTheStore();
    void missingServiceWithoutPackage_data();
    void missingServiceWithoutPackage();
    void firstPackageWins_data();
    void firstPackageWins();
    void packageOfAnotherCallDoesNotCount_data();
    void packageOfAnotherCallDoesNotCount();
    void missingStoreIsSilent();
    void targetMayMissAService();
    void unrecordedCallIsOnlyLogged();
    void foreignCallIsOnlyLogged();
    void showStorePageSendsTheName_data();
    void showStorePageSendsTheName();
    void hugePackageNameIsNotSent();
};

void QuickActionStoreTest::missingServiceBringsTheStore_data()
{
    QTest::addColumn<QString>("service");
    QTest::newRow("name") << s_missing;
    // The bus treats them as names of connections.
    QTest::newRow(":1.4242") << text(":1.4242");
    QTest::newRow(":1") << text(":1");
    QTest::newRow(":abc") << text(":abc");
}

void QuickActionStoreTest::missingServiceBringsTheStore()
{
    QFETCH(QString, service);
    Store store;
    QCOMPARE(messagesOf({actionOf(service, text("package"))}), QStringList(unknownFailure(service)));
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
}

void QuickActionStoreTest::badNamesDoNotBringTheStore_data()
{
    QTest::addColumn<QVariantMap>("action");
    const QVariantMap action = actionOf(s_missing, text("package"));
    QTest::newRow("no service") << with(action, "remote-service", text(""));
    QTest::newRow("service of one part") << with(action, "remote-service", text("abc"));
    QTest::newRow("wrong service") << with(action, "remote-service", text("a..b"));
    QTest::newRow("wrong path") << with(action, "remote-path", text("//"));
    QTest::newRow("reserved path") << with(action, "remote-path", text("/org/freedesktop/DBus/Local"));
    QTest::newRow("wrong interface") << with(action, "remote-interface", text("abc"));
    QTest::newRow("wrong method") << with(action, "remote-method", text("a.b"));
    QTest::newRow("null") << with(action, "remote-arguments", QVariantList{QVariant()});
}

void QuickActionStoreTest::badNamesDoNotBringTheStore()
{
    QFETCH(QVariantMap, action);
    Store store;
    QCOMPARE(messagesOf({action}).filter(text("QML QuickActionReader: Failed")).size(), 1);
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionStoreTest::missingServiceWithoutPackage_data()
{
    QTest::addColumn<QVariantMap>("action");
    QTest::newRow("no key") << actionOf(s_missing);
    QTest::newRow("empty") << actionOf(s_missing, text(""));
    QTest::newRow("null") << with(actionOf(s_missing), "requires-package", QVariant::fromValue(nullptr));
    QTest::newRow("list") << with(actionOf(s_missing), "requires-package", QVariantList{text("package")});
}

void QuickActionStoreTest::missingServiceWithoutPackage()
{
    QFETCH(QVariantMap, action);
    Store store;
    QCOMPARE(messagesOf({action}), QStringList(unknownFailure(s_missing)));
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionStoreTest::firstPackageWins_data()
{
    QTest::addColumn<QStringList>("packages");
    QTest::addColumn<QString>("shown");
    QTest::newRow("first") << path("b/a") << text("b");
    QTest::newRow("first that is not empty") << QStringList{text(""), text("b"), text("a")} << text("b");
    QTest::newRow("empty one later") << QStringList{text("a"), text("")} << text("a");
    QTest::newRow("triggered again") << path("b/a/b") << text("b");
    QTest::newRow("other triggered again") << path("b/a/a") << text("b");
}

void QuickActionStoreTest::firstPackageWins()
{
    QFETCH(QStringList, packages);
    QFETCH(QString, shown);
    Store store;
    QVector<QVariantMap> actions;
    QList<QVariantList> expected;
    for (const QString &package : packages) {
        actions.append(actionOf(s_missing, package));
        expected.append(callFor(shown));
    }
    QCOMPARE(messagesOf(actions).size(), packages.size());
    QCOMPARE(store.calls(), expected);
}

void QuickActionStoreTest::packageOfAnotherCallDoesNotCount_data()
{
    QTest::addColumn<QVariantMap>("other");
    const QVariantMap other = actionOf(s_missing, text("other"));
    QTest::newRow("service") << with(other, "remote-service", text("com.velka.Missing"));
    QTest::newRow("path") << with(other, "remote-path", text("/com/velka/object2"));
    QTest::newRow("interface") << with(other, "remote-interface", text("com.velka.interfac"));
    QTest::newRow("method") << with(other, "remote-method", text("Act"));
}

void QuickActionStoreTest::packageOfAnotherCallDoesNotCount()
{
    QFETCH(QVariantMap, other);
    Store store;
    QCOMPARE(messagesOf({other, actionOf(s_missing), actionOf(s_missing, text("own"))}).size(), 3);
    QCOMPARE(store.calls(),
             (QList<QVariantList>{callFor(text("other")), callFor(text("own")), callFor(text("own"))}));
}

void QuickActionStoreTest::missingStoreIsSilent()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_missing, text("package")));
    settleFailures();
    settle();
    QCOMPARE(log.take(), QStringList(unknownFailure(s_missing)));
}

void QuickActionStoreTest::targetMayMissAService()
{
    Store store;
    Target target(s_service, raise(s_serviceUnknown, text("not here")));
    QCOMPARE(messagesOf({actionOf(s_service, text("package"))}, &target),
             QStringList(failure(actionOf(s_service), s_serviceUnknown + text(" not here"))));
    QCOMPARE(target.calls().size(), 1);
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
}

void QuickActionStoreTest::unrecordedCallIsOnlyLogged()
{
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.sendRemoteCall(actionOf(s_missing, text("package")),
                          SLOT(triggerActionError(QDBusError, QDBusMessage)));
    settleFailures();
    QCOMPARE(log.take(), QStringList(unknownFailure(s_missing)));
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionStoreTest::foreignCallIsOnlyLogged()
{
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_missing, text("package")));
    const QString foreign = text("com.velka.foreign");
    QVERIFY(QDBusConnection::sessionBus().callWithCallback(
        QDBusMessage::createMethodCall(foreign, s_path, s_interface, s_method), &reader, nullptr,
        SLOT(triggerActionError(QDBusError, QDBusMessage))));
    settleFailures();
    QCOMPARE(log.take(), (QStringList{unknownFailure(s_missing), unknownFailure(foreign)}));
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
}

void QuickActionStoreTest::showStorePageSendsTheName_data()
{
    QTest::addColumn<QString>("package");
    QTest::newRow("name") << text("velka-settings-action");
    QTest::newRow("empty") << text("");
    QTest::newRow("percent signs") << text("%1 %6");
    QTest::newRow("non-ASCII") << QStringLiteral(u"\u00e4");
}

void QuickActionStoreTest::showStorePageSendsTheName()
{
    QFETCH(QString, package);
    Store store;
    const MessageLog log;
    QuickActionReader(nullptr).showStorePage(package);
    settle();
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(package)});
    QCOMPARE(log.take(), QStringList());
}

void QuickActionStoreTest::hugePackageNameIsNotSent()
{
    const MessageLog log;
    QuickActionReader(nullptr).showStorePage(QString(40 * 1024 * 1024, QLatin1Char('x')));
    settle();
    QCOMPARE(log.take(),
             QStringList(logged(text("call to com.velka.velkastore failed: QDBusError("
                                     "\"org.freedesktop.DBus.Error.InvalidArgs\", \"The call is too large\")"))));
}

QTEST_GUILESS_MAIN(QuickActionStoreTest)
#include "tst_quickactionstore.moc"
