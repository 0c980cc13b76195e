// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "privateworld.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

bool runInWorld(const QString &directory, const QString &name)
{
    const QDir world(directory);
    const QString bus = QStringLiteral("unix:path=") + world.filePath(QStringLiteral("bus"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), world.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), directory);
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus);
    environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), bus);
    environment.insert(QStringLiteral("DCONF_PROFILE"), world.filePath(QStringLiteral("profile")));

    QProcess child;
    child.setProcessEnvironment(environment);
    child.setWorkingDirectory(directory);
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--world"), name});
    return child.waitForFinished(60000) && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
}

int runTest(int argc, char *argv[], QObject *test, QObject *world)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    const bool isWorld = arguments.removeAll(QStringLiteral("--world")) > 0;
    return QTest::qExec(isWorld ? world : test, arguments);
}

PrivateBus::PrivateBus()
{
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                    QStringLiteral("--address"), qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")});
    m_daemon.waitForReadyRead();
}

PrivateBus::~PrivateBus()
{
    kill();
}

void PrivateBus::kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}
