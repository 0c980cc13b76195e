// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "maintenance.h"
#include "maintenanceadaptor.h"
#include "publish.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Maintenance maintenance;
    new MaintenanceAdaptor(&maintenance);
    if (!publish(&maintenance, QStringLiteral("org.example.Maintenance"), QStringLiteral("/Maintenance"))) {
        return 1;
    }
    return application.exec();
}
