// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"

#include "mgconfitem.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

namespace
{
QByteArray output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed();
}
}

QByteArray dconf(const QStringList &arguments)
{
    return output(QStringLiteral("dconf"), arguments);
}

QByteArray stored(const QString &key)
{
    return dconf({QStringLiteral("read"), key});
}

void store(const QString &key, const QString &value)
{
    dconf({QStringLiteral("write"), key, value});
}

bool isWatched(const QString &key)
{
    const QByteArray rules = output(QStringLiteral("dbus-send"),
                                    {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                                     QStringLiteral("--dest=org.freedesktop.DBus"),
                                     QStringLiteral("/org/freedesktop/DBus"),
                                     QStringLiteral("org.freedesktop.DBus.Debug.Stats.GetAllMatchRules")});
    return rules.contains("arg0path='" + key.toUtf8() + '\'');
}

void waitForWrites()
{
    static int round = 0;
    const QString key = QStringLiteral("/test/written");
    MGConfItem(key).set(++round);
    if (!QTest::qWaitFor([&] { return stored(key) == QByteArray::number(round); }, 10000)) {
        qFatal("What is written does not reach other processes");
    }
}

void settle()
{
    static int round = 0;
    MGConfItem barrier(QStringLiteral("/test/barrier"));
    QSignalSpy spy(&barrier, &MGConfItem::valueChanged);
    store(barrier.key(), QString::number(++round));
    QTRY_COMPARE(spy.count(), 1);
}
