// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "faultsadaptor.h"
#include "publish.h"
#include "sandboxing.h"
#include "sandboxingadaptor.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Sandboxing sandboxing;
    new SandboxingAdaptor(&sandboxing);
    new FaultsAdaptor(&sandboxing);
    const bool published = publish(&sandboxing, QStringLiteral("org.orvantaos.tarnholdd1"),
                                   QStringLiteral("/org/orvantaos/tarnholdd1"), QDBusConnection::systemBus());
    return published ? application.exec() : 1;
}
