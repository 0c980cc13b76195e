// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "common/messages.h"
#include "text.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <limits>
#include <thread>

#include <csignal>
#include <sys/wait.h>

using Fault = ApplicationServices::Fault;
using Model = ApplicationsSettingsModel;
using Service = ApplicationServices::Service;

// Behaviour that all calls of the applications model to the system's services share.
class ApplicationServicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void noCallsWithoutMode();
    void uidIsSentAsEachServiceWantsIt();
    void answerAfterRebuild();
    void lastAnswerWins();
    void answersAfterTheUserChanged();
    void answersAfterTheUserBecameRoot();
    void answersAfterTheEnd();
    void handlerMayRebuild();
    void servicesComeAndGo();
    void demandedCallsWait_data();
    void demandedCallsWait();
    void nothingElseWaits();
    void refusesWhatNoBusCarries();

private:
    Applications m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_none;
}

void ApplicationServicesTest::initTestCase()
{
    writeThreeApplications(m_applications);
    m_applications.write("first/granted.desktop",
                         application("Granted", "NoDisplay=true\n[X-Application]\nPermissions=A\n"));
}

void ApplicationServicesTest::init()
{
    m_services.reset();
}

void ApplicationServicesTest::noCallsWithoutMode()
{
    const MessageLog log;
    for (int mode : {NoMode, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        ServedModel model(&m_services);
        model.setFilterMode(mode);
        model.takeSignals();
        model.toggleSelectedApp(text("a.desktop"));
        model.selectAllApps();
        model.clearSelectedApps();
        model.applyPolicyRules(texts({"a"}));
        model.setFilterModeEnabled(true);
        QVERIFY(!model.filterModeEnabled());
        model.setFilterModeEnabled(false);
        QCOMPARE(m_services.takeCalls(), s_none);
        QCOMPARE(model.takeSignals(), s_none);
        QCOMPARE(model.selectedApps(), s_none);
    }
    QCOMPARE(log.take(), s_none);
}

void ApplicationServicesTest::uidIsSentAsEachServiceWantsIt()
{
    ServedModel model(&m_services);
    model.setUid(4294967295U);
    model.setFilterMode(Model::AllowedOnly);
    QCOMPARE(m_services.takeCalls(), texts({"GetAllowlist(4294967295) u"}));
    model.filterModeEnabled();
    model.setFilterModeEnabled(true);
    model.clearSelectedApps();
    QCOMPARE(m_services.takeCalls(),
             texts({"GetAllowlistEnabled(4294967295) u", "SetAllowlistEnabled(4294967295, 1) ui",
                    "SetAllowlist(4294967295, []) uas", "GetAlwaysAllowedApplications()",
                    "GetAllowlist(4294967295) u"}));
    model.setFilterMode(Model::AutostartedOnly);
    QCOMPARE(m_services.takeCalls(), texts({"GetEnabled(-1) i"}));
    model.setFilterModeEnabled(true);
    QCOMPARE(m_services.takeCalls(), texts({"SetEnabled(-1, 'enabledMode', 1) isb"}));
}

void ApplicationServicesTest::answerAfterRebuild()
{
    ServedModel model(&m_services);
    m_services[Service::Sandboxing].suspend();
    m_services[Service::Autostart].suspend();
    model.setFilterMode(Model::AllowedOnly);
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterMode(NoMode);
    model.takeSignals();
    m_services[Service::Sandboxing].resume();
    m_services[Service::Autostart].resume();
    QCOMPARE(m_services.takeCalls().size(), 2);
    QStringList announced = model.takeSignals();
    announced.sort();
    QCOMPARE(announced, texts({"allowlistChanged", "autostartListChanged", "dataChanged 0-2", "dataChanged 0-2",
                               "selectedAppsChanged", "selectedAppsChanged"}));
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({true, false, false}));
    QCOMPARE(model.column(Model::AutostartedRole), QVariantList({true, false, false}));
    QCOMPARE(model.selectedApps(), s_none);
}

void ApplicationServicesTest::lastAnswerWins()
{
    m_services.answerInTurn("GetAllowlist", {"['a']", "['b']"});
    ServedModel model(&m_services);
    model.setFilterMode(Model::AllowedOnly);
    model.setFilterMode(NoMode);
    model.setFilterMode(Model::AllowedOnly);
    model.takeSignals();
    m_services.settle();
    QCOMPARE(model.takeSignals(), allowlistAnnouncement() + allowlistAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"b"}));
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({false, true, false}));
}

void ApplicationServicesTest::answersAfterTheUserChanged()
{
    m_services.answerInTurn("GetAllowlist", {"['a', 'x']", "['b']"});
    const MessageLog log;
    ServedModel model(&m_services);
    model.setFilterMode(Model::AllowedOnly);
    model.setFilterModeEnabled(true);
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterModeEnabled(true);
    model.takeSignals();
    model.setUid(1001);
    QCOMPARE(model.takeSignals(), texts({"uidChanged"}));
    QStringList calls = m_services.takeCalls();
    calls.sort();
    QCOMPARE(calls, texts({"GetAllowlist(1000) u", "GetAllowlist(1001) u", "GetAlwaysAllowedApplications()",
                           "GetEnabled(1000) i", "SetAllowlistEnabled(1000, 1) ui",
                           "SetEnabled(1000, 'enabledMode', 1) isb"}));
    QCOMPARE(model.selectedApps(), texts({"a", "x", "enabledMode"}));
    QVERIFY(model.filterModeEnabled());
    QCOMPARE(model.column(Model::AutostartedRole), QVariantList({true, false, false}));
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({false, true, false}));
    QCOMPARE(model.column(Model::AlwaysAllowedRole), QVariantList({false, true, false}));
    const QStringList announced = model.takeSignals();
    QCOMPARE(announced.count(text("allowlistChanged")), 2);
    QCOMPARE(announced.count(text("autostartListChanged")), 2);
    QCOMPARE(announced.count(text("allowlistEnabledChanged")), 1);
    QCOMPARE(announced.count(text("autostartEnabledChanged")), 1);
    QCOMPARE(log.take(), s_none);
}

void ApplicationServicesTest::answersAfterTheUserBecameRoot()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    for (bool enabled : {true, false}) {
        m_services.takeCalls();
        model.setUid(1000);
        model.setFilterModeEnabled(enabled);
        model.setUid(0);
        model.takeSignals();
        const MessageLog log;
        QCOMPARE(m_services.takeCalls(),
                 enabled ? texts({"SetAllowlistEnabled(1000, 1) ui", "GetAlwaysAllowedApplications()"})
                         : texts({"SetAllowlistEnabled(1000, 0) ui"}));
        QCOMPARE(model.takeSignals().mid(0, 2), texts({"filterModeEnabledChanged", "allowlistEnabledChanged"}));
        QCOMPARE(model.selectedApps(), enabled ? texts({"a", "x"}) : s_none);
        QCOMPARE(log.take(), incorrectUid(1));
    }
}

void ApplicationServicesTest::answersAfterTheEnd()
{
    const MessageLog log;
    m_services.spoil("GetEnabled", Fault::Refuses);
    {
        ServedModel model(&m_services);
        m_services[Service::Sandboxing].suspend();
        m_services[Service::Autostart].suspend();
        model.setFilterMode(Model::AllowedOnly);
        model.setFilterModeEnabled(true);
        model.toggleSelectedApp(text("a.desktop"));
        model.setFilterMode(Model::AutostartedOnly);
        model.setFilterModeEnabled(true);
    }
    m_services[Service::Sandboxing].resume();
    m_services[Service::Autostart].resume();
    QStringList calls = m_services.takeCalls();
    calls.sort();
    QCOMPARE(calls, texts({"GetAllowlist(1000) u", "GetEnabled(1000) i", "SetAllowlist(1000, ['a']) uas",
                           "SetAllowlistEnabled(1000, 1) ui", "SetEnabled(1000, 'enabledMode', 1) isb"}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationServicesTest::handlerMayRebuild()
{
    ServedModel model(&m_services);
    QMetaObject::Connection once;
    once = connect(&model, &Model::allowlistChanged, &model, [&] {
        disconnect(once);
        model.setFilterMode(NoMode);
        model.setApplications(nullptr);
    });
    model.setFilterMode(Model::AllowedOnly);
    model.takeSignals();
    m_services.settle();
    QCOMPARE(model.count(), 0);
    QVERIFY(!model.takeSignals().join(QLatin1Char(' ')).contains(text("dataChanged")));
}

void ApplicationServicesTest::servicesComeAndGo()
{
    for (Service service : {Service::Sandboxing, Service::Autostart}) {
        m_services.stop(service);
    }
    const MessageLog log;
    ServedModel model(&m_services);
    for (const QStringList &expected : {s_none, texts({"a", "x"}), s_none, texts({"a", "x"})}) {
        for (int mode : {Model::AllowedOnly, Model::AutostartedOnly}) {
            model.setFilterMode(mode);
            m_services.settle();
            QCOMPARE(model.selectedApps(), expected);
        }
        QCOMPARE(log.take().size(), expected.isEmpty() ? 2 : 0);
        for (Service service : {Service::Sandboxing, Service::Autostart}) {
            expected.isEmpty() ? m_services.start(service) : m_services.stop(service);
        }
    }
}

void ApplicationServicesTest::demandedCallsWait_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("whether the allow-list is enabled")
        << QByteArray("GetAllowlistEnabled") << texts({"GetAllowlistEnabled(1000) u"});
    QTest::newRow("application info") << QByteArray("GetAppInfo")
                                      << texts({"GetAppInfo('granted') s", "SetEnabled(1000, 'granted', 1) isb"});
    const QStringList grantingCalls = texts({"GetAppInfo('granted') s", "SetShowPrompt(1000, 'granted', 0) usi",
                                             "SetGrantedPermissions(1000, 'granted', ['A']) usas",
                                             "SetEnabled(1000, 'granted', 1) isb"});
    QTest::newRow("prompt") << QByteArray("SetShowPrompt") << grantingCalls;
    QTest::newRow("permissions") << QByteArray("SetGrantedPermissions") << grantingCalls;
}

void ApplicationServicesTest::demandedCallsWait()
{
    QFETCH(QByteArray, method);
    QFETCH(QStringList, calls);
    const bool reads = method == "GetAllowlistEnabled";
    ServedModel model(&m_services, reads ? Model::AllowedOnly : Model::AutostartedOnly);
    m_services.answer("GetAppInfo", "{}");
    m_services.prepare(method, "os.kill(os.getpid(), signal.SIGSTOP)");
    bool eventsRun = false;
    QTimer::singleShot(0, &model, [&] { eventsRun = true; });
    DBusPeer &daemon = m_services[Service::Sandboxing];
    const auto process = id_t(daemon.processId());
    std::atomic<bool> returned{false};
    bool waited = false;
    std::thread observer([&] {
        siginfo_t state{};
        const bool stopped = waitid(P_PID, process, &state, WSTOPPED | WNOWAIT) == 0;
        waited = stopped && !returned;
        kill(pid_t(process), SIGCONT);
    });
    if (reads) {
        model.filterModeEnabled();
    } else {
        model.toggleSelectedApp(text("granted.desktop"));
    }
    returned = true;
    const bool ranEvents = eventsRun;
    daemon.suspend(); // ends the observer if there was no call
    observer.join();
    daemon.resume();
    QVERIFY(waited);
    QVERIFY(!ranEvents);
    QCOMPARE(m_services.takeCalls(), calls);
}

void ApplicationServicesTest::nothingElseWaits()
{
    QElapsedTimer timer;
    {
        ServedModel model(&m_services);
        m_services[Service::Sandboxing].suspend();
        m_services[Service::Autostart].suspend();
        timer.start();
        Model another;
        another.setUid(1000);
        another.componentComplete();
        model.setFilterMode(Model::AllowedOnly);
        model.setFilterModeEnabled(true);
        model.setFilterModeEnabled(true);
        model.toggleSelectedApp(text("a.desktop"));
        model.selectAllApps();
        model.clearSelectedApps();
        model.applyPolicyRules(texts({"b"}));
        QCOMPARE(model.selectedApps(), texts({"b"}));
        QCOMPARE(model.column(Model::AllowedRole), QVariantList({false, true, false}));
        QCOMPARE(model.column(Model::AlwaysAllowedRole), QVariantList({false, false, false}));
        model.setFilterMode(Model::AutostartedOnly);
        QVERIFY(!model.filterModeEnabled());
        model.setFilterModeEnabled(true);
        model.setFilterModeEnabled(false);
        model.clearSelectedApps();
        model.applyPolicyRules({});
        model.applyPolicyRules(texts({"enabledMode"}));
        model.setUid(1001);
        QCoreApplication::processEvents();
    }
    QVERIFY(timer.elapsed() < NoTime);
    m_services[Service::Sandboxing].resume();
    m_services[Service::Autostart].resume();
    QStringList calls = m_services.takeCalls();
    calls.sort();
    QCOMPARE(calls, texts({"GetAllowlist(1000) u", "GetEnabled(1000) i", "SetAllowlist(1000, ['a', 'b', 'c']) uas",
                           "SetAllowlist(1000, ['a']) uas", "SetAllowlist(1000, ['b']) uas",
                           "SetAllowlist(1000, []) uas", "SetAllowlist(1000, []) uas",
                           "SetAllowlistEnabled(1000, 1) ui", "SetAllowlistEnabled(1000, 1) ui",
                           "SetEnabled(1000, 'enabledMode', 1) isb", "SetEnabled(1000, 'enabledMode', 1) isb"}));
}

// The bus would end the connection, and Qt does not connect again.
void ApplicationServicesTest::refusesWhatNoBusCarries()
{
    const QString large(17 * 1024 * 1024, QLatin1Char('x'));
    const QString half = large.left(large.size() / 2);
    const QString refusal = warning(text("%1 %2 ids").arg(text(Messages::TooLargeToSend)));
    const MessageLog log;
    ServedModel model(&m_services, Model::AllowedOnly);
    model.applyPolicyRules(texts({"a"}));
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, ['a']) uas"}));
    model.toggleSelectedApp(large);
    QCOMPARE(log.take(), QStringList(refusal.arg(2)));
    model.applyPolicyRules({half, half});
    QCOMPARE(log.take(), QStringList(refusal.arg(2)));
    QCOMPARE(model.selectedApps(), texts({"a"}));
    model.setNotificationsEnabled(large, false);
    QCOMPARE(log.take(), QStringList(refusal.arg(1)));
    QCOMPARE(m_services.takeCalls(), s_none);

    model.setFilterMode(Model::AutostartedOnly);
    m_services.takeCalls();
    model.toggleSelectedApp(large);
    model.applyPolicyRules(model.selectedApps() + QStringList(large));
    QCOMPARE(log.take(), QStringList(refusal.arg(1)) + QStringList(refusal.arg(1)));
    model.setFilterModeEnabled(true);
    QCOMPARE(m_services.takeCalls(), texts({"SetEnabled(1000, 'enabledMode', 1) isb"}));
    model.setFilterMode(Model::AllowedOnly);
    QCOMPARE(m_services.takeCalls(), texts({"GetAllowlist(1000) u"}));
    QCOMPARE(log.take(), s_none);
}

QTEST_GUILESS_MAIN(ApplicationServicesTest)
#include "tst_applicationservices.moc"
