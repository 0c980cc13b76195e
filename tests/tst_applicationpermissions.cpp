// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "text.h"
#include "world.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <memory>

using Fault = ApplicationServices::Fault;
using Model = ApplicationsSettingsModel;
using Service = ApplicationServices::Service;

// The permissions in an application's desktop file are granted before its autostart is switched on or off.
class ApplicationPermissionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void grantsBeforeItSwitches();
    void grantsBeforeItSwitchesOff();
    void whoNeedsPermissions_data();
    void whoNeedsPermissions();
    void unknownInfoNeedsNoPermissions_data();
    void unknownInfoNeedsNoPermissions();

    void readsDesktopFile_data();
    void readsDesktopFile();
    void withoutPermissions_data();
    void withoutPermissions();
    void unreadableDesktopFile_data();
    void unreadableDesktopFile();
    void findsDesktopFile_data();
    void findsDesktopFile();
    void searchesNowhereElse_data();
    void searchesNowhereElse();
    void strangeIdsDoNoHarm_data();
    void strangeIdsDoNoHarm();

    void answersAreNotRead();
    void promptStays_data();
    void promptStays();
    void notGranted_data();
    void notGranted();
    void notGrantedForSwitchingOff();
    void oneFailureDoesNotStopTheOthers();
    void silentDaemonIsWaitedForOnce();
    void silentDaemonGrantsNothing();
    void deadDaemonIsCalledAgain();

private:
    QStringList toggle(const QString &id);
    QStringList toggle(const char *id);

    std::unique_ptr<Applications> m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_none;

QByteArray asking(const QByteArray &lines)
{
    return application("App", lines);
}

QString notAdding(const char *id)
{
    return warning(text("Not adding \"%1\" to autostart since permissions not granted").arg(text(id)));
}

/// Returns the calls that grant the application "app" @p permissions, in Python's notation.
QStringList granting(const char *permissions)
{
    return {text("GetAppInfo('app') s"), text("SetShowPrompt(1000, 'app', 0) usi"),
            text("SetGrantedPermissions(1000, 'app', [%1]) usas").arg(text(permissions)),
            text("SetEnabled(1000, 'app', 1) isb")};
}

void failures()
{
    QTest::addColumn<Fault>("fault");
    QTest::newRow("refuses") << Fault::Refuses;
    QTest::newRow("answers too late") << Fault::AnswersTooLate;
    QTest::newRow("dies in the call") << Fault::Dies;
}
}

void ApplicationPermissionsTest::init()
{
    m_services.reset();
    m_services.answer("GetAppInfo", "{'Mode': 'Restricted'}");
    m_services.answer("GetEnabled", "['on']");
    m_applications = std::make_unique<Applications>();
    writeThreeApplications(*m_applications);
}

/// Returns the calls that switch the autostart of the application on or off.
QStringList ApplicationPermissionsTest::toggle(const QString &id)
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.toggleSelectedApp(id + text(".desktop"));
    return m_services.takeCalls();
}

QStringList ApplicationPermissionsTest::toggle(const char *id)
{
    return toggle(text(id));
}

void ApplicationPermissionsTest::grantsBeforeItSwitches()
{
    const MessageLog log;
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A;B\n"));
    QCOMPARE(toggle("app"), granting("'A', 'B'"));
    QCOMPARE(log.take(), s_none);
}

void ApplicationPermissionsTest::grantsBeforeItSwitchesOff()
{
    const MessageLog log;
    m_applications->write("first/on.desktop", asking("[X-Application]\nPermissions=A;B\n"));
    QCOMPARE(toggle("on"),
             texts({"GetAppInfo('on') s", "SetShowPrompt(1000, 'on', 0) usi",
                    "SetGrantedPermissions(1000, 'on', ['A', 'B']) usas", "SetEnabled(1000, 'on', 0) isb"}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationPermissionsTest::whoNeedsPermissions_data()
{
    QTest::addColumn<QByteArray>("info");
    QTest::addColumn<bool>("needs");
    QTest::newRow("none") << QByteArray("{'Mode': 'None', 'Other': 5}") << false;
    QTest::newRow("another mode") << QByteArray("{'Mode': 'Full'}") << true;
    QTest::newRow("another case") << QByteArray("{'Mode': 'none'}") << true;
    QTest::newRow("blank after it") << QByteArray("{'Mode': 'None '}") << true;
    QTest::newRow("empty mode") << QByteArray("{'Mode': ''}") << true;
    QTest::newRow("number") << QByteArray("{'Mode': 0}") << true;
    QTest::newRow("list") << QByteArray("{'Mode': ['None']}") << true;
    QTest::newRow("without mode") << QByteArray("{'Other': 'None'}") << true;
    QTest::newRow("key in another case") << QByteArray("{'mode': 'None'}") << true;
    QTest::newRow("nothing") << QByteArray("{}") << true;
}

void ApplicationPermissionsTest::whoNeedsPermissions()
{
    QFETCH(QByteArray, info);
    QFETCH(bool, needs);
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    m_services.answer("GetAppInfo", info);
    const QStringList calls = texts({"GetAppInfo('app') s", "SetEnabled(1000, 'app', 1) isb"});
    QCOMPARE(toggle("app"), needs ? granting("'A'") : calls);
}

void ApplicationPermissionsTest::unknownInfoNeedsNoPermissions_data()
{
    faults("GetAppInfo");
}

void ApplicationPermissionsTest::unknownInfoNeedsNoPermissions()
{
    QFETCH(Fault, fault);
    QFETCH(QDBusError, error);
    const MessageLog log;
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    m_services.spoil("GetAppInfo", fault);
    QStringList calls = texts({"GetAppInfo('app') s", "SetEnabled(1000, 'app', 1) isb"});
    if (fault == Fault::IsMissing) {
        calls.removeFirst();
    }
    QCOMPARE(toggle("app"), calls);
    QCOMPARE(log.take(), QStringList(warning(text("Couldn't get app info from tarnholdd:  ") + debugText(error))));
}

void ApplicationPermissionsTest::readsDesktopFile_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QByteArray>("permissions");
    const QByteArray application = "[X-Application]\n";
    const QByteArray tarnhold = "[X-Tarnhold]\n";
    QTest::newRow("application") << application + "Permissions=A;B\n" << QByteArray("'A', 'B'");
    QTest::newRow("one") << application + "Permissions=A\n" << QByteArray("'A'");
    QTest::newRow("tarnhold") << tarnhold + "Permissions=T;U\n" << QByteArray("'T', 'U'");
    QTest::newRow("both") << application + "Permissions=A\n" + tarnhold + "Permissions=T\n" << QByteArray("'A'");
    QTest::newRow("both the other way") << tarnhold + "Permissions=T\n" + application + "Permissions=A\n"
                                        << QByteArray("'A'");
    QTest::newRow("application without the key")
        << application + "Sandboxing=Enabled\n" + tarnhold + "Permissions=T\n"
        << QByteArray("'T'");
    QTest::newRow("key in another case") << application + "permissions=A\n" + tarnhold + "Permissions=T\n"
                                         << QByteArray("'T'");
    QTest::newRow("empty") << application + "Permissions=\n" << QByteArray("''");
    QTest::newRow("empty in tarnhold") << tarnhold + "Permissions=\n" << QByteArray("''");
    QTest::newRow("empty before tarnhold") << application + "Permissions=\n" + tarnhold + "Permissions=T\n"
                                           << QByteArray("''");
    QTest::newRow("semicolon at the end") << application + "Permissions=A;B;\n" << QByteArray("'A', 'B', ''");
    QTest::newRow("semicolons alone") << application + "Permissions=;;\n" << QByteArray("'', '', ''");
    QTest::newRow("empty ones") << application + "Permissions=;A;;A\n" << QByteArray("'', 'A', '', 'A'");
    QTest::newRow("blanks") << application + "Permissions = A ; B\n" << QByteArray("'A ', ' B'");
    QTest::newRow("other separators") << application + "Permissions=A,B:C\n" << QByteArray("'A,B:C'");
}

void ApplicationPermissionsTest::readsDesktopFile()
{
    QFETCH(QByteArray, lines);
    QFETCH(QByteArray, permissions);
    const MessageLog log;
    m_applications->write("first/app.desktop", asking(lines));
    QCOMPARE(toggle("app"), granting(permissions.constData()));
    QCOMPARE(log.take(), s_none);
}

void ApplicationPermissionsTest::withoutPermissions_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("no group") << QByteArray();
    QTest::newRow("no key") << QByteArray("[X-Application]\nOther=A\n[X-Tarnhold]\nOther=T\n");
    QTest::newRow("other groups") << QByteArray("Permissions=A\n[X-Other]\nPermissions=A\n");
    QTest::newRow("group in another case") << QByteArray("[x-application]\nPermissions=A\n");
}

void ApplicationPermissionsTest::withoutPermissions()
{
    QFETCH(QByteArray, lines);
    const MessageLog log;
    m_applications->write("first/app.desktop", asking(lines));
    QCOMPARE(toggle("app"), texts({"GetAppInfo('app') s", "SetEnabled(1000, 'app', 1) isb"}));
    QCOMPARE(log.take(), QStringList(warning(text("No valid section is providing Permissions"))));
}

void ApplicationPermissionsTest::unreadableDesktopFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("content");
    const QByteArray permissions = "[X-Application]\nPermissions=A\n";
    QTest::newRow("none") << QByteArray("first/other.desktop") << asking(permissions);
    QTest::newRow("other suffix") << QByteArray("first/app.Desktop") << asking(permissions);
    QTest::newRow("directory") << QByteArray("first/app.desktop/app.desktop") << asking(permissions);
    QTest::newRow("empty") << QByteArray("first/app.desktop") << QByteArray();
    QTest::newRow("no text") << QByteArray("first/app.desktop") << QByteArray("\0\xff\xfe", 3);
    QTest::newRow("no name") << QByteArray("first/app.desktop")
                             << "[Desktop Entry]\nType=Application\n" + permissions;
    QTest::newRow("no type") << QByteArray("first/app.desktop") << "[Desktop Entry]\nName=App\n" + permissions;
    QTest::newRow("no entry") << QByteArray("first/app.desktop") << permissions;
    QTest::newRow("broken line") << QByteArray("first/app.desktop") << asking(permissions + "[X-Tarn\n");
    QTest::newRow("in another application's place") << QByteArray("first/ap/p.desktop") << asking(permissions);
}

void ApplicationPermissionsTest::unreadableDesktopFile()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, content);
    const MessageLog log;
    m_applications->write(file.constData(), content);
    QCOMPARE(toggle("app"), texts({"GetAppInfo('app') s"}));
    QCOMPARE(log.take().filter(text("settings.framework")),
             QStringList(
                 {warning(text("Failed to read application desktop file with Permissions")), notAdding("app")}));
}

void ApplicationPermissionsTest::findsDesktopFile_data()
{
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("lessImportantFile");
    QTest::newRow("user before system")
        << QByteArray("app") << QByteArray("user/app.desktop") << QByteArray("first/app.desktop");
    QTest::newRow("order of the system's")
        << QByteArray("app") << QByteArray("first/app.desktop") << QByteArray("second/app.desktop");
    QTest::newRow("last directory") << QByteArray("app") << QByteArray("second/app.desktop") << QByteArray();
    QTest::newRow("dash in the name") << QByteArray("sub-x") << QByteArray("first/sub-x.desktop")
                                      << QByteArray("first/sub/x.desktop");
    QTest::newRow("sub-directory") << QByteArray("sub-x") << QByteArray("first/sub/x.desktop")
                                   << QByteArray("first/x.desktop");
    QTest::newRow("sub-directories") << QByteArray("sub-dir-x") << QByteArray("first/sub/dir/x.desktop")
                                     << QByteArray();
    QTest::newRow("sub-directory and dash") << QByteArray("sub-dir-x") << QByteArray("first/sub/dir-x.desktop")
                                            << QByteArray("first/sub/dir/x.desktop");
    QTest::newRow("dash in the sub-directory's name")
        << QByteArray("sub-dir-x") << QByteArray("first/sub-dir/x.desktop") << QByteArray();
    QTest::newRow("exact id before the user's sub-directory")
        << QByteArray("sub-x") << QByteArray("first/sub-x.desktop") << QByteArray("user/sub/x.desktop");
    QTest::newRow("user's sub-directory before the system's")
        << QByteArray("sub-x") << QByteArray("user/sub/x.desktop") << QByteArray("first/sub/x.desktop");
    QTest::newRow("slash") << QByteArray("sub/x") << QByteArray("first/sub/x.desktop")
                           << QByteArray("first/sub-x.desktop");
    QTest::newRow("user's slash") << QByteArray("sub/x") << QByteArray("user/sub/x.desktop")
                                  << QByteArray("first/sub/x.desktop");
    QTest::newRow("dots in the name") << QByteArray("com.example..x") << QByteArray("first/com.example..x.desktop")
                                      << QByteArray();
}

void ApplicationPermissionsTest::findsDesktopFile()
{
    QFETCH(QByteArray, id);
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, lessImportantFile);
    const MessageLog log;
    m_applications->write(file.constData(), asking("[X-Application]\nPermissions=Right\n"));
    if (!lessImportantFile.isEmpty()) {
        m_applications->write(lessImportantFile.constData(), asking("[X-Application]\nPermissions=Wrong\n"));
    }
    QCOMPARE(toggle(id.constData()).value(2),
             text("SetGrantedPermissions(1000, '%1', ['Right']) usas").arg(text(id.constData())));
    QCOMPARE(log.take(), s_none);
}

void ApplicationPermissionsTest::searchesNowhereElse_data()
{
    QTest::addColumn<QByteArray>("id");
    for (const char *id : {"../secret", "..-secret", "./../secret", ".-..-secret", "sub/../../secret",
                           "sub-..-..-secret", "sub-../..-secret", "-..-secret", "..--secret", "/etc/secret",
                           "secret", "-secret", "..", "../", "a-.-b", "sub/..-../../secret", "sub/..-secret"}) {
        QTest::newRow(id) << QByteArray(id);
    }
}

void ApplicationPermissionsTest::searchesNowhereElse()
{
    QFETCH(QByteArray, id);
    const MessageLog log;
    m_applications->write("first/sub/x.desktop", asking({}));
    m_applications->write("first/../secret.desktop", asking("[X-Application]\nPermissions=Secret\n"));
    QVERIFY(QFile::exists(m_applications->path("first/../secret.desktop")));
    QCOMPARE(toggle(id.constData()), QStringList(text("GetAppInfo('%1') s").arg(text(id.constData()))));
    QCOMPARE(log.take(), QStringList({warning(text("Failed to read application desktop file with Permissions")),
                                      notAdding(id.constData())}));
}

void ApplicationPermissionsTest::strangeIdsDoNoHarm_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("null character") << QString::fromLatin1("app\0secret", 10);
    QTest::newRow("null character alone") << QString(1, QChar(QChar::Null));
    QTest::newRow("half a pair") << text("app") + QChar(0xd800);
    QTest::newRow("no character") << text("app") + QChar(0xffff);
    QTest::newRow("line") << text("app\n[X-Application]");
    QTest::newRow("long") << QString(1 << 20, QLatin1Char('a'));
    QTest::newRow("dashes") << QString(200, QLatin1Char('-'));
    QTest::newRow("names and dashes") << text("a-").repeated(100000);
}

void ApplicationPermissionsTest::strangeIdsDoNoHarm()
{
    QFETCH(QString, id);
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    ServedModel model(&m_services, Model::AutostartedOnly);
    const MessageLog log;
    model.toggleSelectedApp(id);
    const QStringList calls = m_services.takeCalls();
    QVERIFY(calls.filter(text("SetGrantedPermissions")).isEmpty());
    QVERIFY(calls.filter(text("SetEnabled")).isEmpty());
    QCOMPARE(model.selectedApps(), texts({"on"}));
    model.setFilterMode(Model::AllowedOnly);
    model.toggleSelectedApp(id);
    QCOMPARE(m_services.takeCalls().filter(text("SetAllowlist")).size(), 1);
}

void ApplicationPermissionsTest::answersAreNotRead()
{
    const MessageLog log;
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    for (const char *method : {"SetShowPrompt", "SetGrantedPermissions", "SetEnabled"}) {
        m_services.answer(method, "False", "b");
    }
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.toggleSelectedApp(text("app.desktop"));
    QCOMPARE(m_services.takeCalls(), granting("'A'"));
    QCOMPARE(model.selectedApps(), texts({"on", "app"}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationPermissionsTest::promptStays_data()
{
    failures();
}

void ApplicationPermissionsTest::promptStays()
{
    QFETCH(Fault, fault);
    const MessageLog log;
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    m_services.spoil("SetShowPrompt", fault);
    QCOMPARE(toggle("app"), granting("'A'").mid(0, 2));
    QCOMPARE(log.take(),
             QStringList({warning(text("Failed to hide prompt \"app\" application")), notAdding("app")}));
}

void ApplicationPermissionsTest::notGranted_data()
{
    failures();
}

void ApplicationPermissionsTest::notGranted()
{
    QFETCH(Fault, fault);
    const MessageLog log;
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    m_services.spoil("SetGrantedPermissions", fault);
    QCOMPARE(toggle("app"), granting("'A'").mid(0, 3));
    QCOMPARE(log.take(), QStringList({warning(text("Failed to set granted permissions \"app\" application")),
                                      notAdding("app")}));
}

void ApplicationPermissionsTest::notGrantedForSwitchingOff()
{
    m_applications->write("first/on.desktop", asking("[X-Application]\nPermissions=A\n"));
    m_services.spoil("SetGrantedPermissions", Fault::Refuses);
    ServedModel model(&m_services, Model::AutostartedOnly);
    const MessageLog log;
    model.clearSelectedApps();
    QVERIFY(m_services.takeCalls().filter(text("SetEnabled")).isEmpty());
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.selectedApps(), texts({"on"}));
    QCOMPARE(log.take(), QStringList({warning(text("Failed to set granted permissions \"on\" application")),
                                      notAdding("on")}));
}

void ApplicationPermissionsTest::oneFailureDoesNotStopTheOthers()
{
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    ServedModel model(&m_services, Model::AutostartedOnly);
    const MessageLog log;
    model.applyPolicyRules(texts({"missing", "app"}));
    QCOMPARE(m_services.takeCalls().filter(text("SetEnabled")), texts({"SetEnabled(1000, 'app', 1) isb"}));
    QCOMPARE(model.selectedApps(), texts({"on", "app"}));
    QCOMPARE(log.take(), QStringList({warning(text("Failed to read application desktop file with Permissions")),
                                      notAdding("on"),
                                      warning(text("Failed to read application desktop file with Permissions")),
                                      notAdding("missing")}));
}

void ApplicationPermissionsTest::silentDaemonIsWaitedForOnce()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    const MessageLog log;
    m_services[Service::Sandboxing].suspend();
    QElapsedTimer timer;
    timer.start();
    model.applyPolicyRules(texts({"on", "a", "b", "c", "d", "e", "f"}));
    const qint64 elapsed = timer.elapsed();
    m_services[Service::Sandboxing].resume();
    QVERIFY2(elapsed < NoTime, qPrintable(QString::number(elapsed))); // each time-out takes 2000
    const QStringList calls = m_services.takeCalls();
    QCOMPARE(calls.filter(text("GetAppInfo")), texts({"GetAppInfo('a') s"}));
    QCOMPARE(calls.filter(text("SetEnabled")).size(), 6);
    QCOMPARE(log.take().filter(text("Couldn't get app info from tarnholdd:")).size(), 6);
    model.applyPolicyRules(texts({"on"})); // calls again
    QCOMPARE(m_services.takeCalls().filter(text("GetAppInfo")).size(), 6);
}

void ApplicationPermissionsTest::silentDaemonGrantsNothing()
{
    m_applications->write("first/app.desktop", asking("[X-Application]\nPermissions=A\n"));
    m_applications->write("first/other.desktop", asking("[X-Application]\nPermissions=A\n"));
    ServedModel model(&m_services, Model::AutostartedOnly);
    const MessageLog log;
    m_services.spoil("SetShowPrompt", Fault::AnswersTooLate);
    model.applyPolicyRules(texts({"on", "app", "other"}));
    QCOMPARE(m_services.takeCalls(), texts({"GetAppInfo('app') s", "SetShowPrompt(1000, 'app', 0) usi",
                                            "SetEnabled(1000, 'other', 1) isb"}));
    QCOMPARE(log.take().size(), 3);
}

void ApplicationPermissionsTest::deadDaemonIsCalledAgain()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    m_services.spoil("GetAppInfo", Fault::Dies);
    const MessageLog log;
    model.applyPolicyRules(texts({"on", "a", "b"}));
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 2);
    QVERIFY(messages.at(0).contains(text("org.freedesktop.DBus.Error.NoReply")));
    QVERIFY(messages.at(1).contains(text("org.freedesktop.DBus.Error.ServiceUnknown")));
}

QTEST_GUILESS_MAIN(ApplicationPermissionsTest)
#include "tst_applicationpermissions.moc"
