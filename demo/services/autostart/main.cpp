// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "autostart.h"
#include "autostartadaptor.h"
#include "faultsadaptor.h"
#include "publish.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Autostart autostart;
    new AutostartAdaptor(&autostart);
    new FaultsAdaptor(&autostart);
    const bool published = publish(&autostart, QStringLiteral("com.kelo.RuntimeManager"),
                                   QStringLiteral("/com/kelo/am"), QDBusConnection::systemBus());
    return published ? application.exec() : 1;
}
