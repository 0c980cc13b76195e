// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "entryfinder.h"
#include "runner.h"
#include "runneradaptor.h"
#include "settingsapplication.h"
#include "shellprovider.h"
#include "shellprovideradaptor.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QTimer>

#include <cstdio>

namespace
{
constexpr int LastRest = 1000; ///< in milliseconds

const QCommandLineOption s_application(QStringLiteral("application"),
                                       QStringLiteral("Name of the Settings application on the session bus."),
                                       QStringLiteral("NAME"), QStringLiteral(VELKA_SETTINGS_APPLICATION));
const QCommandLineOption s_rest(QStringLiteral("rest"),
                                QStringLiteral("Quit when nothing was asked for MS milliseconds."),
                                QStringLiteral("MS"), QStringLiteral("60000"));

QString serviceName()
{
    return QStringLiteral("org.velkasettings.Search");
}

bool publish(QObject *shellProvider, QObject *runner)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.registerObject(QStringLiteral("/org/velkasettings/Search/Shell"), shellProvider)
           && bus.registerObject(QStringLiteral("/org/velkasettings/Search/Runner"), runner)
           && bus.registerService(serviceName());
}

/// Returns why publish() failed. For Qt, a name that is taken is not an error.
QString publishError()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() && !bus.lastError().isValid()
               ? QStringLiteral("the name %1 is taken").arg(serviceName())
               : bus.lastError().message();
}
}

int main(int argc, char *argv[])
{
    QCoreApplication program(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Finds settings entries for launchers, on the session bus."));
    parser.addHelpOption();
    parser.addOptions({s_application, s_rest});
    parser.process(program);
    bool isNumber = false;
    const int restTime = parser.value(s_rest).toInt(&isNumber);
    if (!isNumber || restTime < 0) {
        std::fprintf(stderr, "\"%s\" is not a number of milliseconds.\n", qPrintable(parser.value(s_rest)));
        return 1;
    }

    EntryFinder finder;
    SettingsApplication application(parser.value(s_application));
    ShellProvider shellProvider(&finder, &application);
    new ShellProviderAdaptor(&shellProvider);
    Runner runner(&finder, &application);
    new RunnerAdaptor(&runner);
    if (!publish(&shellProvider, &runner)) {
        std::fprintf(stderr, "Can't search for launchers: %s\n", qPrintable(publishError()));
        return 1;
    }

    QTimer rest;
    rest.setSingleShot(true);
    rest.setInterval(restTime);
    QObject::connect(&finder, &EntryFinder::used, &rest, qOverload<>(&QTimer::start));
    QObject::connect(&rest, &QTimer::timeout, &program, [&finder, &rest] {
        // The bus sends no call to a program without the name. The calls from before are still answered.
        const bool hadName = QDBusConnection::sessionBus().unregisterService(serviceName());
        if (hadName || finder.isAnswering()) {
            rest.start(LastRest);
        } else {
            QCoreApplication::quit();
        }
    });
    rest.start();
    return QCoreApplication::exec();
}
