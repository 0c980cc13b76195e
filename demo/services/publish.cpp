// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "publish.h"

#include <QDBusError>
#include <QDebug>
#include <QTextStream>

bool publish(QObject *object, const QString &service, const QString &path, QDBusConnection bus)
{
    if (!bus.registerObject(path, object) || !bus.registerService(service)) {
        qWarning() << "Can't offer" << service << bus.lastError();
        return false;
    }
    QTextStream(stdout) << service << '\n';
    return true;
}
