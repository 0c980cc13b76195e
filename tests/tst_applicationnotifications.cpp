// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "text.h"

#include "notificationsconfigproxy.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using Fault = ApplicationServices::Fault;
using Model = ApplicationsSettingsModel;
using Service = ApplicationServices::Service;

// The notification settings of the applications in the notifications service.
class ApplicationNotificationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void proxy();
    void enabledAtFirst();
    void fetchesAll();
    void listOverwritesOnlyWhatItNames();
    void valuesAreMadeFlags_data();
    void valuesAreMadeFlags();
    void failedListEmptiesAll_data();
    void failedListEmptiesAll();
    void outlivesARebuild();

    void setsOne();
    void failedSetChangesNothing_data();
    void failedSetChangesNothing();
    void setsUnknownApplication();
    void firstRowOfTheIdIsMeant();
    void idsOfRowsChange();
    void applicationWithoutId();

    void answersAfterTheRowsAreRemoved();
    void nothingWaits();

private:
    std::unique_ptr<Applications> m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_none;
const QString s_a = QStringLiteral("com.example.a");

const QStringList s_announcement = texts({"allowedNotificationsChanged", "selectedAppsChanged"});
}

void ApplicationNotificationsTest::init()
{
    m_services.reset();
    m_applications = std::make_unique<Applications>();
    writeNotifyingApplications(*m_applications);
}

void ApplicationNotificationsTest::enabledAtFirst()
{
    ServedModel model(&m_services);
    QCOMPARE(model.column(Model::ApplicationIdRole), QVariantList({s_a, text("com.example.b"), text("")}));
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QCOMPARE(m_services.takeCalls(), s_none);
}

void ApplicationNotificationsTest::fetchesAll()
{
    const MessageLog log;
    m_services.answer("getList",
                      "{'com.example.a': False, 'com.example.b': True, 'a': False, 'com.example.x': False}");
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(m_services.takeCalls(), texts({"getList()"}));
    QCOMPARE(model.takeSignals(), s_announcement);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({false, true, true}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationNotificationsTest::listOverwritesOnlyWhatItNames()
{
    m_services.answerInTurn("getList", {"{'com.example.a': False}", "{'com.example.b': False}", "{}"});
    ServedModel model(&m_services);
    for (const QVariantList &expected :
         {QVariantList{false, true, true}, QVariantList{false, false, true}, QVariantList{false, false, true}}) {
        model.getAllowedNotificationsConfig();
        m_services.settle();
        QCOMPARE(model.takeSignals(), s_announcement);
        QCOMPARE(model.column(Model::NotificationsEnabledRole), expected);
    }
}

void ApplicationNotificationsTest::valuesAreMadeFlags_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("true") << QByteArray("True") << true;
    QTest::newRow("false") << QByteArray("False") << false;
    QTest::newRow("one") << QByteArray("1") << true;
    QTest::newRow("zero") << QByteArray("0") << false;
    QTest::newRow("fraction") << QByteArray("0.5") << true;
    QTest::newRow("text") << QByteArray("'true'") << true;
    QTest::newRow("text for false") << QByteArray("'false'") << false;
    QTest::newRow("empty text") << QByteArray("''") << false;
    QTest::newRow("list") << QByteArray("[True]") << false;
}

void ApplicationNotificationsTest::valuesAreMadeFlags()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, enabled);
    m_services.answer("getList", "{'com.example.a': " + value + "}");
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({enabled, true, true}));
}

void ApplicationNotificationsTest::failedListEmptiesAll_data()
{
    faults("getList");
}

void ApplicationNotificationsTest::failedListEmptiesAll()
{
    QFETCH(Fault, fault);
    QFETCH(QDBusError, error);
    ServedModel model(&m_services);
    m_services.answer("getList", "{'com.example.a': False}");
    model.getAllowedNotificationsConfig();
    m_services.settle();
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({false, true, true}));
    model.takeSignals();
    const MessageLog log;
    m_services.spoil("getList", fault);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_announcement);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QString expected;
    QDebug(&expected) << "Failed to get notifications configs list. Error:" << error.name() << error.message();
    QCOMPARE(log.take(), QStringList(warning(expected.trimmed())));
}

void ApplicationNotificationsTest::outlivesARebuild()
{
    m_services.answer("getList", "{'com.example.a': False}");
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    model.setFilterMode(Model::AllowedOnly);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({false, true, true}));
}

void ApplicationNotificationsTest::setsOne()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.setNotificationsEnabled(text("com.example.b"), false);
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QCOMPARE(m_services.takeCalls(), texts({"setEnabled('com.example.b', 0) sb"}));
    QCOMPARE(model.takeSignals(), notificationAnnouncement("1-1"));
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, false, true}));
    model.setNotificationsEnabled(text("com.example.b"), true);
    model.setNotificationsEnabled(text("com.example.b"), true);
    QCOMPARE(m_services.takeCalls(),
             texts({"setEnabled('com.example.b', 1) sb", "setEnabled('com.example.b', 1) sb"}));
    QCOMPARE(model.takeSignals(), notificationAnnouncement("1-1") + notificationAnnouncement("1-1"));
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationNotificationsTest::failedSetChangesNothing_data()
{
    faults("setEnabled");
}

void ApplicationNotificationsTest::failedSetChangesNothing()
{
    QFETCH(Fault, fault);
    QFETCH(QDBusError, error);
    const MessageLog log;
    ServedModel model(&m_services);
    m_services.spoil("setEnabled", fault);
    model.setNotificationsEnabled(s_a, false);
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QCOMPARE(log.take(), QStringList(warning(text("Failed to set notifications config for com.example.a. Error: ")
                                             + unquotedText(error))));
}

void ApplicationNotificationsTest::setsUnknownApplication()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.setNotificationsEnabled(text("a"), false);
    QCOMPARE(m_services.takeCalls(), texts({"setEnabled('a', 0) sb"}));
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QCOMPARE(log.take(), QStringList(warning(text("Cant find application: a"))));
}

void ApplicationNotificationsTest::firstRowOfTheIdIsMeant()
{
    m_applications->write("first/c.desktop", application("C", "X-DBus-ServiceName=com.example.b"));
    ServedModel model(&m_services);
    model.setNotificationsEnabled(text("com.example.b"), false);
    m_services.settle();
    QCOMPARE(model.takeSignals(), notificationAnnouncement("1-1"));
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, false, false}));
}

void ApplicationNotificationsTest::idsOfRowsChange()
{
    ServedModel model(&m_services);
    QSignalSpy reset(&model, &Model::modelReset);
    const auto announced = [&](const char *id) {
        model.setNotificationsEnabled(text(id), false);
        m_services.settle();
        return model.takeSignals();
    };
    QCOMPARE(announced("com.example.b"), notificationAnnouncement("1-1"));
    m_applications->write("first/a.desktop", application("A", "X-DBus-ServiceName=com.example.b"));
    QTRY_COMPARE(model.column(Model::ApplicationIdRole).value(0), QVariant(text("com.example.b")));
    QCOMPARE(announced("com.example.b"), notificationAnnouncement("0-0"));
    m_applications->write("first/c.desktop", application("C", "X-DBus-ServiceName=com.example.new"));
    QTRY_COMPARE(model.column(Model::ApplicationIdRole).value(2), QVariant(text("com.example.new")));
    QCOMPARE(announced("com.example.new"), notificationAnnouncement("2-2"));
    QCOMPARE(reset.count(), 0);
    m_applications->remove("first/a.desktop");
    QTRY_COMPARE(model.column(Model::ApplicationIdRole).value(0), QVariant(QString()));
    QCOMPARE(announced("com.example.b"), notificationAnnouncement("1-1"));
    QCOMPARE(announced(""), notificationAnnouncement("0-0"));
    QCOMPARE(reset.count(), 0);
}

void ApplicationNotificationsTest::applicationWithoutId()
{
    ServedModel model(&m_services);
    model.setNotificationsEnabled({}, false);
    QCOMPARE(m_services.takeCalls(), texts({"setEnabled('', 0) sb"}));
    QCOMPARE(model.takeSignals(), notificationAnnouncement("2-2"));
}

void ApplicationNotificationsTest::answersAfterTheRowsAreRemoved()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.setNotificationsEnabled(s_a, false);
    model.getAllowedNotificationsConfig();
    model.setApplications(nullptr);
    model.takeSignals();
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_announcement);
    QCOMPARE(log.take(), QStringList(warning(text("Cant find application: com.example.a"))));
}

void ApplicationNotificationsTest::nothingWaits()
{
    ServedModel model(&m_services);
    m_services[Service::Notifications].suspend();
    QElapsedTimer timer;
    timer.start();
    model.getAllowedNotificationsConfig();
    model.setNotificationsEnabled(s_a, false);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QCoreApplication::processEvents();
    QVERIFY(timer.elapsed() < NoTime);
    m_services[Service::Notifications].resume();
    QCOMPARE(m_services.takeCalls(), texts({"getList()", "setEnabled('com.example.a', 0) sb"}));
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({false, true, true}));
}

void ApplicationNotificationsTest::proxy()
{
    using Proxy = ComKeloNotificationsConfigProxy;
    QCOMPARE(Proxy::staticInterfaceName(), "com.kelo.NotificationsConfig1");
    Proxy proxy(text("com.kelo.NotificationsConfig1"), text("/com/kelo/NotificationsConfig1"),
                QDBusConnection::sessionBus(), nullptr);
    QDBusPendingReply<QVariantMap> config = proxy.getConfig(text("com.example.a"));
    QDBusPendingCallWatcher watcher(config);
    QSignalSpy finished(&watcher, &QDBusPendingCallWatcher::finished);
    QVERIFY(finished.wait());
    QCOMPARE(config.value(), (QVariantMap{{text("enabled"), true}}));
    QCOMPARE(m_services.takeCalls(), texts({"getConfig('com.example.a') s"}));
}

QTEST_GUILESS_MAIN(ApplicationNotificationsTest)
#include "tst_applicationnotifications.moc"
