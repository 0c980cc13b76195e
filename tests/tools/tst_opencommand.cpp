// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dbuspeer.h"
#include "text.h"
#include "tool.h"
#include "world.h"

#include <QDBusArgument>
#include <QFile>
#include <QTest>

namespace
{
const QString s_open = QStringLiteral("open");
const QString s_demo = QStringLiteral("org.velkasettings.Demo");
const QString s_demoPath = QStringLiteral("/org/velkasettings/Demo");
const QString s_interface = QStringLiteral("org.freedesktop.Application");

/// A Settings application.
class Application : public DBusPeer
{
public:
    explicit Application(const QString &service = s_demo, const QString &path = s_demoPath,
                         const QString &code = {})
        : DBusPeer(QDBusConnection::SessionBus, service, path, s_interface)
    {
        addMethod(text("Open"), text("asa{sv}"), code);
    }

    /// Returns the last call, as its signature, the URLs and the platform's data.
    QVariantList lastCall()
    {
        return calls(text("Open")).value(0);
    }
};
}

class OpenCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void sendsTheUrl_data();
    void sendsTheUrl();
    void sendsToAnotherService();
    void sendsActivationTokens();
    void missingApplication();
    void refusal();
    void startsTheApplication();
    void mistakes_data();
    void mistakes();
    void withoutBus();
};

void OpenCommandTest::init()
{
    World::reset();
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
}

void OpenCommandTest::sendsTheUrl_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("url");
    QTest::newRow("path") << text("system_settings/sound") << text("velka-settings:/system_settings/sound");
    QTest::newRow("slashes") << text("/a//b/") << text("velka-settings:/a/b");
    QTest::newRow("signs") << text("a b/50%") << text("velka-settings:/a%20b/50%25");
    QTest::newRow("URL") << text("velka-settings:///a%20b/c") << text("velka-settings:/a%20b/c");
}

void OpenCommandTest::sendsTheUrl()
{
    QFETCH(QString, argument);
    QFETCH(QString, url);
    Application application;
    const Tool::Result result = Tool::run({s_open, argument});
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.exitCode, 0);
    const QVariantList call = application.lastCall();
    QCOMPARE(call.value(0).toString(), text("asa{sv}"));
    QCOMPARE(qdbus_cast<QStringList>(call.value(1)), QStringList(url));
    QCOMPARE(call.value(2).toMap(), QVariantMap());
}

void OpenCommandTest::sendsToAnotherService()
{
    Application application(text("org.example.My-Settings"), text("/org/example/My_Settings"));
    QCOMPARE(Tool::run({s_open, text("--service"), text("org.example.My-Settings"), text("a")}).exitCode, 0);
    QCOMPARE(qdbus_cast<QStringList>(application.lastCall().value(1)), QStringList(text("velka-settings:/a")));
}

void OpenCommandTest::sendsActivationTokens()
{
    Application application;
    qputenv("XDG_ACTIVATION_TOKEN", "T");
    qputenv("DESKTOP_STARTUP_ID", "S");
    QCOMPARE(Tool::run({s_open, text("a")}).exitCode, 0);
    QCOMPARE(application.lastCall().value(2).toMap(),
             (QVariantMap{{text("activation-token"), text("T")}, {text("desktop-startup-id"), text("S")}}));
}

void OpenCommandTest::missingApplication()
{
    const Tool::Result result = Tool::run({s_open, text("a")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors,
             QByteArray("velka-settings open: org.velkasettings.Demo: The name org.velkasettings.Demo was "
                        "not provided by any .service files\n"));
}

void OpenCommandTest::refusal()
{
    const Application application(
        s_demo, s_demoPath, text("raise dbus.exceptions.DBusException('not\\nnow', name='com.velka.Error')"));
    const Tool::Result result = Tool::run({s_open, text("a")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors, QByteArray("velka-settings open: org.velkasettings.Demo: not\\u{a}now\n"));
}

void OpenCommandTest::startsTheApplication()
{
    // The service's file is where the session bus of the sandbox looks for it. The program ends at once.
    const QString directory = qEnvironmentVariable("XDG_RUNTIME_DIR") + text("/services/");
    const QString started = directory + text("started");
    const QString program = directory + text("program");
    World::writeFile(program, "#!/bin/sh\necho \"$DBUS_STARTER_BUS_TYPE\" >" + started.toUtf8() + "\nexit 1\n");
    QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QString file = directory + text("org.example.Started.service");
    World::writeFile(file, "[D-BUS Service]\nName=org.example.Started\nExec=" + program.toUtf8() + "\n");
    const Tool::Result result = Tool::run({s_open, text("--service"), text("org.example.Started"), text("a")});
    QCOMPARE(result.exitCode, 1); // it has never got the name
    QVERIFY(QFile::exists(started));
    QVERIFY(QFile::remove(file));
}

void OpenCommandTest::mistakes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("scheme") << QStringList{text("https://example.com/a")}
                            << QByteArray("cannot open \"https://example.com/a\": it is no velka-settings: URL");
    QTest::newRow("encoding") << QStringList{text("velka-settings:/%2")}
                              << QByteArray("cannot open \"velka-settings:/%2\": it is wrongly encoded");
    QTest::newRow("control") << QStringList{text("a\tb")}
                             << QByteArray("cannot open \"a\\u{9}b\": it has control characters");
    QTest::newRow("dots") << QStringList{text("../a")}
                          << QByteArray("cannot open \"../a\": \".\" and \"..\" are no names");
    QTest::newRow("empty") << QStringList{QString()} << QByteArray("cannot open \"\": it names no entry");
    QTest::newRow("long") << QStringList{QString(100000, QLatin1Char('a'))}
                          << "cannot open \"" + QByteArray(100, 'a') + "\": it is too long";
    QTest::newRow("service") << QStringList{text("--service"), text("abc"), text("a")}
                             << QByteArray("\"abc\" is no name of an application on the bus");
}

void OpenCommandTest::mistakes()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const Tool::Result result = Tool::run(QStringList(s_open) + arguments);
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors, "velka-settings open: " + message + "\nSee velka-settings open --help.\n");
}

void OpenCommandTest::withoutBus()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const Tool::Result result = Tool::run({s_open, text("a")});
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.errors, QByteArray("velka-settings open: there is no session bus\n"));
}

QTEST_GUILESS_MAIN(OpenCommandTest)
#include "tst_opencommand.moc"
