// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "growth.h"
#include "text.h"

#include "notificationsconfigproxy.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QTest>

#include <memory>
#include <optional>

using Fault = ApplicationServices::Fault;
using Model = ApplicationsSettingsModel;
using Service = ApplicationServices::Service;

// The applications model follows the changes that the notifications service announces.
class ApplicationNotificationSignalsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void followsAChange();
    void warnsOfAnUnknownApplication_data();
    void warnsOfAnUnknownApplication();
    void warnsOfAnotherChange();
    void ignoresOtherSignals();
    void ignoresOtherSenders();
    void followsNothingBeforeFirstUse();
    void answersAfterTheEnd();
    void serviceStartsAndStops();
    void changesTakeLinearTime();

private:
    void announce(const QString &applicationId, const QVariantMap &config);
    void announce(const QVariantList &arguments, const char *signature);

    std::unique_ptr<Applications> m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_none;
const QString s_a = QStringLiteral("com.example.a");

QVariantMap enabled(bool value)
{
    return {{text("enabled"), value}};
}
}

void ApplicationNotificationSignalsTest::init()
{
    m_services.reset();
    m_applications = std::make_unique<Applications>();
    writeNotifyingApplications(*m_applications);
}

void ApplicationNotificationSignalsTest::announce(const QString &applicationId, const QVariantMap &config)
{
    announce({applicationId, config}, "sa{sv}");
}

void ApplicationNotificationSignalsTest::announce(const QVariantList &arguments, const char *signature)
{
    m_services[Service::Notifications].emitSignal(text("configChanged"), text(signature), arguments);
    m_services.settle();
}

void ApplicationNotificationSignalsTest::followsAChange()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    model.takeSignals();
    announce(s_a, {{text("enabled"), false}, {text("sound"), true}});
    QCOMPARE(model.takeSignals(), notificationAnnouncement("0-0"));
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({false, true, true}));
    announce(s_a, enabled(true));
    QCOMPARE(model.takeSignals(), notificationAnnouncement("0-0"));
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    announce(s_a, {{text("enabled"), text("false")}});
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({false, true, true}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationNotificationSignalsTest::warnsOfAnUnknownApplication_data()
{
    QTest::addColumn<QVariantMap>("config");
    QTest::newRow("with a flag") << enabled(false);
    QTest::newRow("without a flag") << QVariantMap();
}

void ApplicationNotificationSignalsTest::warnsOfAnUnknownApplication()
{
    QFETCH(QVariantMap, config);
    const MessageLog log;
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    model.takeSignals();
    announce(text("com.example.x"), config);
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(log.take(), QStringList(warning(text("Cant find application: com.example.x"))));
}

void ApplicationNotificationSignalsTest::warnsOfAnotherChange()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    model.takeSignals();
    announce(s_a, {{text("Enabled"), false}});
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.column(Model::NotificationsEnabledRole), QVariantList({true, true, true}));
    QCOMPARE(log.take(),
             QStringList(warning(text("Unknown config changed: QMap((\"Enabled\", QVariant(bool, false)))"))));
}

void ApplicationNotificationSignalsTest::ignoresOtherSignals()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    model.takeSignals();
    announce({s_a}, "s");
    announce({s_a, false}, "sb");
    announce({}, "");
    m_services[Service::Notifications].emitSignal(text("otherChanged"), text("sa{sv}"), {s_a, enabled(false)});
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationNotificationSignalsTest::ignoresOtherSenders()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.getAllowedNotificationsConfig();
    m_services.settle();
    model.takeSignals();
    QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, text("other"));
    QDBusMessage signal = QDBusMessage::createSignal(text("/com/kelo/NotificationsConfig1"),
                                                     text("com.kelo.NotificationsConfig1"), text("configChanged"));
    signal.setArguments({s_a, enabled(false)});
    QVERIFY(other.send(signal));
    // When the reply to this arrives, the bus has passed on the signal.
    other.call(QDBusMessage::createMethodCall(text("org.freedesktop.DBus"), text("/"),
                                              text("org.freedesktop.DBus"), text("GetId")));
    m_services.settle();
    QDBusConnection::disconnectFromBus(text("other"));
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationNotificationSignalsTest::followsNothingBeforeFirstUse()
{
    ServedModel model(&m_services);
    announce(s_a, enabled(false));
    QCOMPARE(model.takeSignals(), s_none);
    model.setNotificationsEnabled(text("com.example.b"), false);
    m_services.settle();
    model.takeSignals();
    announce(s_a, enabled(false));
    QCOMPARE(model.takeSignals(), notificationAnnouncement("0-0"));
}

void ApplicationNotificationSignalsTest::answersAfterTheEnd()
{
    const MessageLog log;
    m_services.spoil("getList", Fault::Refuses);
    std::optional<ServedModel> model(&m_services);
    m_services[Service::Notifications].suspend();
    model->getAllowedNotificationsConfig();
    model->setNotificationsEnabled(text("com.example.x"), false);
    model.reset();
    m_services[Service::Notifications].resume();
    QCOMPARE(m_services.takeCalls(), texts({"getList()", "setEnabled('com.example.x', 0) sb"}));
    announce(text("com.example.x"), {});
    QCOMPARE(log.take(), s_none);
}

void ApplicationNotificationSignalsTest::serviceStartsAndStops()
{
    m_services.stop(Service::Notifications);
    ServedModel model(&m_services);
    for (int i = 0; i < 2; ++i) {
        const MessageLog log;
        model.getAllowedNotificationsConfig();
        m_services.settle();
        QCOMPARE(log.take().size(), 1);
        m_services.start(Service::Notifications);
        model.takeSignals();
        announce(s_a, enabled(false));
        QCOMPARE(model.takeSignals(), notificationAnnouncement("0-0"));
        model.setNotificationsEnabled(s_a, true);
        m_services.settle();
        QCOMPARE(model.takeSignals(), notificationAnnouncement("0-0"));
        QCOMPARE(log.take(), s_none);
        m_services.stop(Service::Notifications);
    }
}

void ApplicationNotificationSignalsTest::changesTakeLinearTime()
{
    const auto changeAll = [this](int count) {
        m_applications = std::make_unique<Applications>();
        for (int i = 0; i < count; ++i) {
            m_applications->write(qPrintable(text("first/x%1.desktop").arg(i)),
                                  application("X", "X-DBus-ServiceName=com.example.x" + QByteArray::number(i)));
        }
        ServedModel model(&m_services);
        model.getAllowedNotificationsConfig();
        m_services.settle();
        auto *proxy = model.findChild<ComKeloNotificationsConfigProxy *>();
        CpuTimer timer;
        timer.start();
        for (int i = 0; i < count; ++i) {
            Q_EMIT proxy->configChanged(text("com.example.x%1").arg(i), enabled(false));
        }
        const qint64 elapsed = timer.nsecsElapsed();
        return model.column(Model::NotificationsEnabledRole).contains(true) ? -1 : elapsed;
    };
    QVERIFY(Growth::isLinear(changeAll, 200));
}

QTEST_GUILESS_MAIN(ApplicationNotificationSignalsTest)
#include "tst_applicationnotificationsignals.moc"
