// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "faultsadaptor.h"
#include "notifications.h"
#include "notificationsadaptor.h"
#include "publish.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Notifications notifications;
    new NotificationsAdaptor(&notifications);
    new FaultsAdaptor(&notifications);
    const bool published = publish(&notifications, QStringLiteral("com.kelo.NotificationsConfig1"),
                                   QStringLiteral("/com/kelo/NotificationsConfig1"));
    return published ? application.exec() : 1;
}
