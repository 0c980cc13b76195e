// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "growth.h"
#include "mgconfitem.h"
#include "nextfunction.h"
#include "nodescriptors.h"
#include "readonlyconfiguration.h"

#include <QDeadlineTimer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <dconf.h>

#include <functional>
#include <optional>
#include <utility>

namespace
{
GVariant *s_outdatedValue = nullptr;
std::function<void()> s_beforeRead; ///< called once
bool s_dropsNotification = false; ///< the next one
bool s_waitsForFailure = false; ///< before the next notification is handled

const QString s_key = QStringLiteral("/test/reading");

bool hasValue(DConfClient *client)
{
    GVariant *value = dconf_client_read(client, qUtf8Printable(s_key));
    if (value) {
        g_variant_unref(value);
    }
    return value;
}

void beforeNotification(DConfClient *client)
{
    if (std::exchange(s_dropsNotification, false)) {
        g_signal_stop_emission_by_name(client, "changed");
    }
    if (std::exchange(s_waitsForFailure, false)) {
        const QDeadlineTimer deadline(5000);
        while (hasValue(client) && !deadline.hasExpired()) {
            QThread::yieldCurrentThread();
        }
    }
}

QStringList names(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names.append(QStringLiteral("name%1").arg(i));
    }
    return names;
}

/// Returns the nanoseconds that it takes to read a list in the database.
qint64 measureReading(int count)
{
    MGConfItem item(s_key);
    item.set(names(count));
    if (!QTest::qWaitFor(
            [count] { return stored(s_key).endsWith("'name" + QByteArray::number(count - 1) + "']"); })) {
        return -1;
    }
    // Wait for the pending writes of this process, too.
    settle();
    CpuTimer timer;
    timer.start();
    return item.value().toStringList().size() == count ? timer.nsecsElapsed() : -1;
}
}

// The dynamic linker finds these functions before those of dconf.
extern "C" Q_DECL_EXPORT DConfClient *dconf_client_new()
{
    DConfClient *client = nextFunction(dconf_client_new, "dconf_client_new")();
    g_signal_connect(client, "changed", G_CALLBACK(beforeNotification), nullptr);
    return client;
}

extern "C" Q_DECL_EXPORT GVariant *dconf_client_read(DConfClient *client, const gchar *path)
{
    if (s_beforeRead) {
        std::exchange(s_beforeRead, nullptr)();
    }
    if (s_outdatedValue) {
        return std::exchange(s_outdatedValue, nullptr);
    }
    return nextFunction(dconf_client_read, "dconf_client_read")(client, path);
}

// MGConfItem returns the current value even if dconf returns an outdated one.
class MGConfItemReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ignoresAnOutdatedValue();
    void notifiesOfAWriteThatDconfDoesNotReport();
    void notifiesOfAWriteThatFailsAtOnce();
    void keepsTheValueIfDescriptorsRunOutDuringTheRead();
    void longListTakesLinearTime();
};

void MGConfItemReadingTest::ignoresAnOutdatedValue()
{
    MGConfItem item(s_key);
    item.set(1);
    item.set(2);
    s_outdatedValue = g_variant_ref_sink(g_variant_new_int32(1));
    QCOMPARE(item.value(), QVariant(2));
    QVERIFY(!s_outdatedValue);
    s_outdatedValue = g_variant_ref_sink(g_variant_new_int32(1));
    item.set(QVariant());
    QCOMPARE(item.value(), QVariant());
}

// dconf does not notify of a write that equals the value that it reads, which may be the previous one.
void MGConfItemReadingTest::notifiesOfAWriteThatDconfDoesNotReport()
{
    MGConfItem item(s_key);
    MGConfItem other(s_key);
    item.set(1);
    QSignalSpy changes(&item, &MGConfItem::valueChanged);
    QSignalSpy otherChanges(&other, &MGConfItem::valueChanged);
    s_dropsNotification = true;
    item.set(2);
    QVERIFY(!s_dropsNotification);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(otherChanges.count(), 1);
    QCOMPARE(other.value(), QVariant(2));
    item.set(2);
    settle();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(otherChanges.count(), 1);
}

// The service may refuse a write before the writing process has handled its own notification.
void MGConfItemReadingTest::notifiesOfAWriteThatFailsAtOnce()
{
    MGConfItem item(s_key);
    item.set(QVariant());
    settle();
    const ReadOnlyConfiguration fault;
    QSignalSpy changes(&item, &MGConfItem::valueChanged);
    s_waitsForFailure = true;
    item.set(1);
    QVERIFY(!s_waitsForFailure);
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(item.value(), QVariant());
}

// dconf opens its database again after each change of it, and finds no value if it cannot.
void MGConfItemReadingTest::keepsTheValueIfDescriptorsRunOutDuringTheRead()
{
    const QString otherKey = QStringLiteral("/test/other");
    MGConfItem item(s_key);
    item.set(1);
    MGConfItem(otherKey).set(1); // so that the item reads again
    settle();
    std::optional<NoDescriptors> none;
    s_beforeRead = [&] {
        store(otherKey, QStringLiteral("2"));
        none.emplace();
    };
    QCOMPARE(item.value(), QVariant(1));
    QVERIFY(none);
    none.reset();
    QCOMPARE(item.value(), QVariant(1));
}

void MGConfItemReadingTest::longListTakesLinearTime()
{
    QVERIFY(Growth::isBelow(30, measureReading, 2000, 20000));
}

QTEST_GUILESS_MAIN(MGConfItemReadingTest)

#include "tst_mgconfitemreading.moc"
