// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "soak/resources.h"

#include "text.h"
#include "world.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QMutex>
#include <QSet>
#include <QStringList>
#include <QThread>
#include <QTimer>

#include <numeric>
#include <utility>

#include <malloc.h>

/// Qt's own table of hooks for its debugging tools.
extern quintptr Q_CORE_EXPORT qtHookData[];

namespace
{
constexpr int ResidentGrowthKiB = 1024;
constexpr int AddObjectHook = 3;
constexpr int RemoveObjectHook = 4;

struct Objects {
    QMutex mutex;
    QSet<QObject *> live;
};

/// Never destroyed, because libraries keep objects until the process ends.
Objects &objects()
{
    static auto *const objects = new Objects;
    return *objects;
}

void objectAdded(QObject *object)
{
    const QMutexLocker lock(&objects().mutex);
    objects().live.insert(object);
}

void objectRemoved(QObject *object)
{
    const QMutexLocker lock(&objects().mutex);
    objects().live.remove(object);
}

/// Returns the objects of this thread. Those of other threads change at any time.
QSet<QObject *> liveObjects()
{
    const QMutexLocker lock(&objects().mutex);
    QSet<QObject *> own;
    for (QObject *object : std::as_const(objects().live)) {
        if (object->thread() == QThread::currentThread()) {
            own.insert(object);
        }
    }
    return own;
}

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(); // it may already be closed
}

int residentKiB()
{
    const QByteArray status = content(text("/proc/self/status"));
    const int start = status.indexOf("VmRSS:") + 6;
    return status.mid(start, status.indexOf("kB", start) - start).trimmed().toInt();
}

QStringList descriptors()
{
    return QDir(text("/proc/self/fdinfo")).entryList(QDir::Files);
}

int fileWatches()
{
    int count = 0;
    const QStringList names = descriptors();
    for (const QString &name : names) {
        count += content(text("/proc/self/fdinfo/") + name).count("inotify wd:");
    }
    return count;
}

QStringList rulesOnBus(const QDBusConnection &bus)
{
    const QDBusMessage reply = bus.call(
        QDBusMessage::createMethodCall(text("org.freedesktop.DBus"), text("/org/freedesktop/DBus"),
                                       text("org.freedesktop.DBus.Debug.Stats"), text("GetAllMatchRules")));
    if (reply.type() != QDBusMessage::ReplyMessage) {
        qFatal("The bus does not return its match rules: %s", qPrintable(reply.errorMessage()));
    }
    const auto rules = qdbus_cast<QMap<QString, QStringList>>(reply.arguments().at(0));
    QStringList own;
    for (auto it = rules.cbegin(); it != rules.cend(); ++it) {
        if (bus.interface()->servicePid(it.key()) == uint(QCoreApplication::applicationPid())) {
            own += it.value();
        }
    }
    return own;
}

QString compared(const char *what, int before, int now)
{
    return now > before ? text("%2 %1, %3 before; ").arg(text(what)).arg(now).arg(before) : QString();
}

QString comparedObjects(const QMap<QByteArray, int> &before, const QMap<QByteArray, int> &now)
{
    QString result;
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        result += compared(it.key().constData(), before.value(it.key()), it.value());
    }
    return result;
}
}

Resources Resources::measured()
{
    malloc_trim(0);
    Resources now;
    now.residentKiB = ::residentKiB();
    now.allocatedKiB = int(mallinfo2().uordblks / 1024);
    now.descriptors = ::descriptors().size();
    now.fileWatches = ::fileWatches();
    const QStringList rules = rulesOnBus(QDBusConnection::sessionBus()) + rulesOnBus(QDBusConnection::systemBus());
    now.matchRules = rules.size();
    now.dconfWatches = rules.filter(text("ca.desrt.dconf")).size();
    now.runningTimers = ::runningTimers();
    const QSet<QObject *> all = liveObjects();
    for (const QObject *object : all) {
        ++now.objects[object->metaObject()->className()];
    }
    return now;
}

QString Resources::growthSince(const Resources &before) const
{
    const int allowed = World::KeepsFreedMemory ? residentKiB : before.residentKiB + ResidentGrowthKiB;
    return compared("KiB resident", allowed, residentKiB)
           + compared("descriptors", before.descriptors, descriptors)
           + compared("file watches", before.fileWatches, fileWatches)
           + compared("match rules", before.matchRules, matchRules)
           + compared("dconf watches", before.dconfWatches, dconfWatches)
           + comparedObjects(before.objects, objects)
           + compared("running timers", before.runningTimers, runningTimers);
}

QString Resources::toString() const
{
    return text("%1 KiB resident, %9 allocated, %2 descriptors, %3 file watches, %4 match rules (%5 of dconf), %6 "
                "objects, "
                "%7 timers (%8 running)")
        .arg(residentKiB)
        .arg(descriptors)
        .arg(fileWatches)
        .arg(matchRules)
        .arg(dconfWatches)
        .arg(std::accumulate(objects.cbegin(), objects.cend(), 0))
        .arg(objects.value("QTimer"))
        .arg(runningTimers)
        .arg(allocatedKiB);
}

void followObjects()
{
    qtHookData[AddObjectHook] = reinterpret_cast<quintptr>(&objectAdded);
    qtHookData[RemoveObjectHook] = reinterpret_cast<quintptr>(&objectRemoved);
}

int runningTimers()
{
    int count = 0;
    const QSet<QObject *> all = liveObjects();
    for (QObject *object : all) {
        count += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
    }
    return count;
}
