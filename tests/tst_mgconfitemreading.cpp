// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "growth.h"
#include "mgconfitem.h"
#include "nextfunction.h"

#include <QSignalSpy>
#include <QTest>

#include <dconf.h>

namespace
{
GVariant *s_staleAnswer = nullptr;
bool s_dropsAnnouncement = false; ///< the next one

void dropAnnouncement(DConfClient *client)
{
    if (std::exchange(s_dropsAnnouncement, false)) {
        g_signal_stop_emission_by_name(client, "changed");
    }
}

const QString s_key = QStringLiteral("/test/reading");

QStringList names(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names.append(QStringLiteral("name%1").arg(i));
    }
    return names;
}

/// The nanoseconds that reading a list takes that is in the database.
qint64 measureReading(int count)
{
    MGConfItem item(s_key);
    item.set(names(count));
    if (!QTest::qWaitFor(
            [count] { return stored(s_key).endsWith("'name" + QByteArray::number(count - 1) + "']"); })) {
        return -1;
    }
    // Whatever this process has in flight has landed as well.
    settle();
    CpuTimer timer;
    timer.start();
    return item.value().toStringList().size() == count ? timer.nsecsElapsed() : -1;
}
}

// The dynamic linker finds these before dconf's own.
extern "C" Q_DECL_EXPORT DConfClient *dconf_client_new()
{
    DConfClient *client = nextFunction(dconf_client_new, "dconf_client_new")();
    g_signal_connect(client, "changed", G_CALLBACK(dropAnnouncement), nullptr);
    return client;
}

extern "C" Q_DECL_EXPORT GVariant *dconf_client_read(DConfClient *client, const gchar *path)
{
    if (s_staleAnswer) {
        return std::exchange(s_staleAnswer, nullptr);
    }
    return nextFunction(dconf_client_read, "dconf_client_read")(client, path);
}

// How MGConfItem copes with dconf's reading values that are no longer there.
class tst_MGConfItemReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staleAnswerIsNotBelieved();
    void unannouncedWriteIsNoticed();
    void longListTakesLinearTime();
};

void tst_MGConfItemReading::staleAnswerIsNotBelieved()
{
    MGConfItem item(s_key);
    item.set(1);
    item.set(2);
    s_staleAnswer = g_variant_ref_sink(g_variant_new_int32(1));
    QCOMPARE(item.value(), QVariant(2));
    QVERIFY(!s_staleAnswer);
    s_staleAnswer = g_variant_ref_sink(g_variant_new_int32(1));
    item.set(QVariant());
    QCOMPARE(item.value(), QVariant());
}

// dconf announces no write of the value that it reads at that moment, which may be the one before.
void tst_MGConfItemReading::unannouncedWriteIsNoticed()
{
    MGConfItem item(s_key);
    MGConfItem other(s_key);
    item.set(1);
    QSignalSpy changes(&item, &MGConfItem::valueChanged);
    QSignalSpy otherChanges(&other, &MGConfItem::valueChanged);
    s_dropsAnnouncement = true;
    item.set(2);
    QVERIFY(!s_dropsAnnouncement);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(otherChanges.count(), 1);
    QCOMPARE(other.value(), QVariant(2));
    item.set(2);
    settle();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(otherChanges.count(), 1);
}

void tst_MGConfItemReading::longListTakesLinearTime()
{
    QVERIFY(Growth::isBelow(30, measureReading, 2000, 20000));
}

QTEST_GUILESS_MAIN(tst_MGConfItemReading)

#include "tst_mgconfitemreading.moc"
