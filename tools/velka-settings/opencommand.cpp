// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "printable.h"
#include "toolkit/address.h"
#include "toolkit/applicationpath.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QVariantMap>

#include <cstdio>

namespace
{
const char s_openHelp[] = R"(Usage: velka-settings open [OPTION]... PATH|URL

Shows the entry at PATH in the Settings application, which is started if the
session bus knows how. A URL has the form velka-settings:/PATH, percent-encoded.
The application only shows its page: no action is run, no value is changed.

  --service NAME  the application's name on the session bus
                  (org.velkasettings.Demo)
  -h, --help      prints this; --version prints the version

Exit status: 0; 1 when the application is not there or refuses; 2 when the
address or the name is wrong, or there is no session bus.
)";

const QString s_service = QStringLiteral("service");

/// Returns what lets the application raise its window, if the program that starts this one has provided it.
QVariantMap platformData()
{
    QVariantMap data;
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    const QString startupId = qEnvironmentVariable("DESKTOP_STARTUP_ID");
    if (!token.isEmpty()) {
        data.insert(QStringLiteral("activation-token"), token);
    }
    if (!startupId.isEmpty()) {
        data.insert(QStringLiteral("desktop-startup-id"), startupId);
    }
    return data;
}

int fail(int exitStatus, const QString &message)
{
    std::fprintf(stderr, "velka-settings open: %s\n", qUtf8Printable(printable(message)));
    return exitStatus;
}

int openPath(const QString &path, const QString &service)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return fail(Commands::CannotRun, QStringLiteral("there is no session bus"));
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, applicationPath(service), QStringLiteral("org.freedesktop.Application"), QStringLiteral("Open"));
    call.setArguments({QStringList(Address::urlOf(path)), platformData()});
    const QDBusMessage reply = bus.call(call);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        return fail(Commands::Findings, service + QStringLiteral(": ") + reply.errorMessage());
    }
    return Commands::Success;
}
}

int Commands::open(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption({s_service, {}, QStringLiteral("NAME"), QStringLiteral("org.velkasettings.Demo")});
    const CommandSyntax syntax{"open", s_openHelp, {}, 1, 1, "PATH or URL"};
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, syntax, arguments)) {
        return *exitStatus;
    }
    const QString service = parser.value(s_service);
    const QString named = parser.positionalArguments().constFirst();
    const Address address = Address::of(named);
    if (!address.error.isEmpty()) {
        return refuse(syntax, QStringLiteral("cannot open \"%1\": %2").arg(named.left(100), address.error));
    }
    if (applicationPath(service).isEmpty()) {
        return refuse(syntax, QStringLiteral("\"%1\" is no name of an application on the bus").arg(service));
    }
    return openPath(address.path, service);
}
