// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "privateworld.h"
#include "text.h"
#include "toolkit/platformservices.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Call = void (*)(ServedModel *model);
using Fault = ApplicationServices::Fault;
using Service = ApplicationServices::Service;
using State = PlatformService::State;

Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(ApplicationServices::Service)

namespace
{
const PlatformService *serviceOf(const PlatformServices &services, Service service)
{
    switch (service) {
    case Service::Sandboxing:
        return services.sandboxing();
    case Service::Autostart:
        return services.autostart();
    default:
        return services.notifications();
    }
}

void fetchNotifications(ServedModel *model)
{
    model->getAllowedNotificationsConfig();
}

/// Makes a call to each service, and waits for the replies.
void letAllWork(const PlatformServices &services, ApplicationServices *peers)
{
    ServedModel allowed(peers, ServedModel::AllowedOnly);
    const ServedModel started(peers, ServedModel::AutostartedOnly);
    fetchNotifications(&allowed);
    for (Service service : {Service::Sandboxing, Service::Autostart, Service::Notifications}) {
        QTRY_COMPARE(serviceOf(services, service)->state(), State::Working);
    }
}

void toggleGranted(ServedModel *model)
{
    model->toggleSelectedApp(text("granted.desktop"));
}
}

/// What the replies to the model of applications say of the services.
class PlatformServicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void unknownBeforeTheFirstCall();
    void followsEachCall_data();
    void followsEachCall();
    void statesOfFaults_data();
    void statesOfFaults();
    void showsEarlierReplies();
    void announcesOnlyChanges();
    void readersDoNotCallHandlers();
    void withoutBus();

private:
    Applications m_applications;
    ApplicationServices m_services;
};

/// Run in a process of its own.
class PlatformServicesWorlds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBus();
};

void PlatformServicesTest::initTestCase()
{
    writeNotifyingApplications(m_applications);
    m_applications.write("first/granted.desktop",
                         application("Granted", "NoDisplay=true\n[X-Application]\nPermissions=A\n"));
}

void PlatformServicesTest::init()
{
    m_services.reset();
}

void PlatformServicesTest::unknownBeforeTheFirstCall()
{
    const PlatformServices services;
    const ServedModel model(&m_services);
    for (Service service : {Service::Sandboxing, Service::Autostart, Service::Notifications}) {
        QCOMPARE(serviceOf(services, service)->state(), State::Unknown);
        QCOMPARE(serviceOf(services, service)->errorName(), QString());
    }
    QCOMPARE(m_services.takeCalls(), QStringList());
}

void PlatformServicesTest::followsEachCall_data()
{
    QTest::addColumn<Service>("service");
    QTest::addColumn<int>("mode");
    QTest::addColumn<Call>("call");
    const auto row = [](const char *method, Service service, int mode, Call call) {
        QTest::newRow(method) << service << mode << call;
    };
    const int allowed = ServedModel::AllowedOnly;
    const int started = ServedModel::AutostartedOnly;
    row("GetAllowlist", Service::Sandboxing, NoMode,
        [](ServedModel *model) { model->setFilterMode(ServedModel::AllowedOnly); });
    row("SetAllowlist", Service::Sandboxing, allowed, [](ServedModel *model) { model->clearSelectedApps(); });
    row("GetAllowlistEnabled", Service::Sandboxing, allowed,
        [](ServedModel *model) { model->filterModeEnabled(); });
    row("GetAppInfo", Service::Sandboxing, started, toggleGranted);
    row("SetShowPrompt", Service::Sandboxing, started, toggleGranted);
    row("SetGrantedPermissions", Service::Sandboxing, started, toggleGranted);
    row("GetEnabled", Service::Autostart, NoMode,
        [](ServedModel *model) { model->setFilterMode(ServedModel::AutostartedOnly); });
    row("SetEnabled", Service::Autostart, started, [](ServedModel *model) { model->setFilterModeEnabled(true); });
    row("getList", Service::Notifications, NoMode, fetchNotifications);
    row("setEnabled", Service::Notifications, NoMode,
        [](ServedModel *model) { model->setNotificationsEnabled(text("com.example.a"), false); });
}

void PlatformServicesTest::followsEachCall()
{
    QFETCH(Service, service);
    QFETCH(int, mode);
    QFETCH(Call, call);
    const PlatformServices services;
    letAllWork(services, &m_services);
    ServedModel model(&m_services, mode);
    m_services.answer("GetAppInfo", "{'Mode': 'Limited'}");
    m_services.spoil(QTest::currentDataTag(), Fault::Refuses);
    const MessageLog log;
    call(&model);
    QTRY_COMPARE(serviceOf(services, service)->state(), State::Failing);
    QCOMPARE(serviceOf(services, service)->errorName(), text("com.kelo.Error"));
    QCOMPARE(serviceOf(services, service)->errorString(), text("no"));
}

void PlatformServicesTest::statesOfFaults_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<State>("state");
    QTest::newRow("refuses") << Fault::Refuses << State::Failing;
    QTest::newRow("answers with another type") << Fault::AnswersAnotherType << State::Failing;
    QTest::newRow("answers with nothing") << Fault::AnswersNothing << State::Failing;
    QTest::newRow("answers too late") << Fault::AnswersTooLate << State::Silent;
    QTest::newRow("dies in the call") << Fault::Dies << State::Silent;
    QTest::newRow("is missing") << Fault::IsMissing << State::Absent;
}

void PlatformServicesTest::statesOfFaults()
{
    QFETCH(Fault, fault);
    QFETCH(State, state);
    const PlatformServices services;
    const PlatformService *const service = services.notifications();
    letAllWork(services, &m_services);
    ServedModel model(&m_services);
    m_services.spoil("getList", fault);
    const MessageLog log;
    fetchNotifications(&model);
    QTRY_COMPARE(service->state(), state);
    QVERIFY(!service->errorName().isEmpty());
    QVERIFY(!service->errorString().isEmpty());
    m_services.reset();
    fetchNotifications(&model);
    QTRY_COMPARE(service->state(), State::Working);
    QCOMPARE(service->errorName(), QString());
    QCOMPARE(service->errorString(), QString());
}

void PlatformServicesTest::showsEarlierReplies()
{
    letAllWork(PlatformServices(), &m_services);
    ServedModel model(&m_services);
    m_services.spoil("getList", Fault::Refuses);
    const MessageLog log;
    fetchNotifications(&model);
    m_services.settle();
    const PlatformServices services;
    QCOMPARE(services.notifications()->state(), State::Failing);
}

void PlatformServicesTest::announcesOnlyChanges()
{
    const PlatformServices services;
    ServedModel model(&m_services);
    fetchNotifications(&model);
    QTRY_COMPARE(services.notifications()->state(), State::Working);
    QSignalSpy changes(services.notifications(), &PlatformService::changed);
    fetchNotifications(&model);
    m_services.settle();
    QCOMPARE(changes.count(), 0);
    m_services.stop(Service::Notifications);
    const MessageLog log;
    fetchNotifications(&model);
    QTRY_COMPARE(changes.count(), 1);
}

void PlatformServicesTest::readersDoNotCallHandlers()
{
    auto *const model = new ServedModel(&m_services, ServedModel::AllowedOnly);
    const QPointer<ServedModel> guard(model);
    m_services.settle();
    m_services.stop(Service::Sandboxing);
    const PlatformServices services;
    connect(services.sandboxing(), &PlatformService::changed, this, [model] { delete model; });
    QVERIFY(!model->filterModeEnabled());
    QVERIFY(guard);
    QTRY_VERIFY(!guard);
}

void PlatformServicesTest::withoutBus()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("withoutBus")));
}

void PlatformServicesWorlds::withoutBus()
{
    const PlatformServices services;
    ApplicationsSettingsModel model;
    const MessageLog log;
    model.getAllowedNotificationsConfig();
    QTRY_COMPARE(services.notifications()->state(), State::Absent);
    QCOMPARE(services.notifications()->errorName(), text("org.freedesktop.DBus.Error.Disconnected"));
}

int main(int argc, char *argv[])
{
    PlatformServicesTest test;
    PlatformServicesWorlds worlds;
    return runTest(argc, argv, &test, &worlds);
}

#include "tst_platformservices.moc"
