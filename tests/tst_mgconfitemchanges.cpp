// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "mgconfitem.h"
#include "testkey.h"

#include <QAbstractEventDispatcher>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

/// The notifications of MGConfItem: one for each change of its value, wherever it comes from.
class MGConfItemChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resetNotifiesOnce();
    void resetOfADirectoryNotifies();
    void changeFromAnotherProcess();
    void changeFromTheSameProcess();
    void changeBeforeTheWatchIsActive();
    void changeOfTheTypeOnly();
    void equalValueDoesNotNotify();
    void notifiesWhenAReadValueChangesBack();
    void otherKeysDoNotNotify();
    void handlerDeletesTheItem();
    void handlerDeletesAnotherItem();
    void handlerSetsAgain();
    void handlerCreatesAnItem();
    void otherProcessesNotifyOnceInATurn();
    void itemsShareAKey();
    void unwatchesUnusedKeys();
};

void MGConfItemChangesTest::resetNotifiesOnce()
{
    MGConfItem item(testKey());
    item.set(1);
    QTRY_COMPARE(stored(item.key()), QByteArrayLiteral("1"));
    QSignalSpy spy(&item, &MGConfItem::valueChanged);

    item.set(QVariant());
    QVERIFY(!item.value().isValid());
    QCOMPARE(spy.count(), 1);
    QTRY_COMPARE(stored(item.key()), QByteArray());
    settle();
    QVERIFY(!item.value().isValid());

    item.set(QVariant());
    settle();
    QCOMPARE(spy.count(), 1);
}

void MGConfItemChangesTest::resetOfADirectoryNotifies()
{
    MGConfItem item(testKey() + QStringLiteral("/directory/key"));
    MGConfItem sibling(testKey() + QStringLiteral("/directory2/key"));
    item.set(1);
    sibling.set(1);
    QTRY_COMPARE(stored(sibling.key()), QByteArrayLiteral("1"));
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QSignalSpy siblingSpy(&sibling, &MGConfItem::valueChanged);

    dconf({QStringLiteral("reset"), QStringLiteral("-f"), testKey() + QStringLiteral("/directory/")});
    QTRY_VERIFY(!item.value().isValid());
    settle();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(siblingSpy.count(), 0);
    QCOMPARE(sibling.value(), QVariant(1));
}

void MGConfItemChangesTest::changeFromAnotherProcess()
{
    MGConfItem item(testKey());
    MGConfItem other(testKey());
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QSignalSpy otherSpy(&other, &MGConfItem::valueChanged);
    settle();

    store(item.key(), QStringLiteral("'one'"));
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(item.value(), QVariant(QStringLiteral("one")));
    settle();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(otherSpy.count(), 1);

    store(item.key(), QStringLiteral("'two'"));
    QTRY_COMPARE(spy.count(), 2);
    settle();
    QCOMPARE(spy.count(), 2);
    QCOMPARE(otherSpy.count(), 2);
}

void MGConfItemChangesTest::changeFromTheSameProcess()
{
    MGConfItem item(testKey());
    MGConfItem other(testKey());
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QSignalSpy otherSpy(&other, &MGConfItem::valueChanged);

    for (int value = 1; value <= 20; ++value) {
        item.set(value);
        QCOMPARE(other.value(), QVariant(value));
        QCOMPARE(MGConfItem(item.key()).value(), QVariant(value));
    }
    QTRY_COMPARE(stored(item.key()), QByteArrayLiteral("20"));
    settle();
    QCOMPARE(spy.count(), 20);
    QCOMPARE(otherSpy.count(), 20);
}

void MGConfItemChangesTest::changeBeforeTheWatchIsActive()
{
    MGConfItem item(testKey());
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    store(item.key(), QStringLiteral("1"));
    QTRY_COMPARE(spy.count(), 1);
    settle();
    QCOMPARE(spy.count(), 1);
}

void MGConfItemChangesTest::changeOfTheTypeOnly()
{
    MGConfItem item(testKey());
    item.set(QVariantList{1});
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    item.set(QVariantList{QStringLiteral("1")});
    QCOMPARE(spy.count(), 1);
}

void MGConfItemChangesTest::equalValueDoesNotNotify()
{
    MGConfItem item(testKey());
    store(item.key(), QStringLiteral("{'b': 2.5, 'a': nan}"));
    settle();
    QVERIFY(item.value().isValid());
    QSignalSpy spy(&item, &MGConfItem::valueChanged);

    item.set(item.value());
    QTRY_COMPARE(stored(item.key()), QByteArrayLiteral("{'a': <nan>, 'b': <2.5>}"));
    item.set(item.value());
    store(item.key(), QStringLiteral("{'a': nan, 'b': 2.5}"));
    settle();
    QCOMPARE(spy.count(), 0);
}

void MGConfItemChangesTest::notifiesWhenAReadValueChangesBack()
{
    MGConfItem item(testKey());
    for (const QString &start : {QStringLiteral("1"), QString()}) {
        item.set(start.isEmpty() ? QVariant() : QVariant(1));
        waitForWrites();
        settle();
        QSignalSpy spy(&item, &MGConfItem::valueChanged);

        store(item.key(), QStringLiteral("2"));
        QCOMPARE(item.value(), QVariant(2));
        start.isEmpty() ? dconf({QStringLiteral("reset"), item.key()}) : (store(item.key(), start), QByteArray());
        settle();
        QVERIFY(spy.count() >= 1);
        QCOMPARE(item.value(), start.isEmpty() ? QVariant() : QVariant(1));
    }
}

void MGConfItemChangesTest::otherKeysDoNotNotify()
{
    MGConfItem item(testKey());
    item.set(1);
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    MGConfItem(testKey() + QLatin1Char('2')).set(2);
    store(testKey() + QStringLiteral("/below"), QStringLiteral("3"));
    settle();
    QCOMPARE(spy.count(), 0);
    QCOMPARE(item.value(), QVariant(1));
}

void MGConfItemChangesTest::handlerDeletesTheItem()
{
    QPointer<MGConfItem> item = new MGConfItem(testKey());
    MGConfItem other(testKey());
    QSignalSpy spy(&other, &MGConfItem::valueChanged);
    connect(item, &MGConfItem::valueChanged, this, [item]() { delete item; });
    item->set(1);
    QVERIFY(!item);
    QCOMPARE(spy.count(), 1);

    item = new MGConfItem(testKey());
    connect(item, &MGConfItem::valueChanged, this, [item]() { delete item; });
    waitForWrites();
    store(other.key(), QStringLiteral("2"));
    QTRY_VERIFY(!item);
    QTRY_COMPARE(spy.count(), 2);
}

void MGConfItemChangesTest::handlerDeletesAnotherItem()
{
    MGConfItem item(testKey());
    auto earlier = std::make_unique<MGConfItem>(testKey());
    auto middle = std::make_unique<MGConfItem>(testKey());
    auto later = std::make_unique<MGConfItem>(testKey());
    int laterChanges = 0;
    connect(later.get(), &MGConfItem::valueChanged, this, [&laterChanges]() { ++laterChanges; });
    connect(middle.get(), &MGConfItem::valueChanged, this, [&]() {
        earlier.reset();
        later.reset();
    });
    item.set(1);
    QVERIFY(!earlier);
    QVERIFY(!later);
    QCOMPARE(laterChanges, 0);
    QCOMPARE(item.value(), QVariant(1));
}

void MGConfItemChangesTest::handlerSetsAgain()
{
    MGConfItem item(testKey());
    MGConfItem other(testKey());
    QVariantList seen;
    connect(&item, &MGConfItem::valueChanged, this, [&]() {
        seen.append(item.value());
        if (item.value().toInt() < 3) {
            item.set(item.value().toInt() + 1);
        }
    });
    QSignalSpy spy(&other, &MGConfItem::valueChanged);
    item.set(1);
    QCOMPARE(seen, (QVariantList{1, 2, 3}));
    QCOMPARE(other.value(), QVariant(3));
    QTRY_COMPARE(stored(item.key()), QByteArrayLiteral("3"));
    settle();
    QCOMPARE(seen, (QVariantList{1, 2, 3}));
    QVERIFY(spy.count() >= 1);
}

void MGConfItemChangesTest::handlerCreatesAnItem()
{
    MGConfItem item(testKey());
    std::vector<std::unique_ptr<MGConfItem>> created;
    int changes = 0;
    connect(&item, &MGConfItem::valueChanged, this, [&]() {
        created.push_back(std::make_unique<MGConfItem>(item.key()));
        connect(created.back().get(), &MGConfItem::valueChanged, this, [&changes]() { ++changes; });
    });
    item.set(1);
    QCOMPARE(created.size(), size_t(1));
    QCOMPARE(created.front()->value(), QVariant(1));
    QCOMPARE(changes, 0);
    item.set(2);
    QCOMPARE(changes, 1);
}

// Each handler finds that another process has written once more, with many notifications to come.
void MGConfItemChangesTest::otherProcessesNotifyOnceInATurn()
{
    MGConfItem item(testKey());
    settle();
    constexpr int Pending = 20;
    constexpr int Last = 2 * Pending;
    int next = 0;
    int notifications = 0; // in a turn
    int mostNotifications = 0;
    int allNotifications = 0;
    const auto write = [&] { store(item.key(), QString::number(++next)); };
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &item,
            [&] { notifications = 0; });
    connect(&item, &MGConfItem::valueChanged, &item, [&] {
        ++allNotifications;
        mostNotifications = qMax(mostNotifications, ++notifications);
        if (next < Last) {
            write();
        }
    });
    while (next < Pending) {
        write();
    }
    QTRY_COMPARE(item.value(), QVariant(Last));
    settle();
    QCOMPARE(mostNotifications, 1);
    QVERIFY(allNotifications > Pending);
}

void MGConfItemChangesTest::itemsShareAKey()
{
    MGConfItem item(testKey());
    auto other = std::make_unique<MGConfItem>(testKey());
    settle();
    other.reset();
    settle();

    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    store(item.key(), QStringLiteral("1"));
    QTRY_COMPARE(spy.count(), 1);
}

void MGConfItemChangesTest::unwatchesUnusedKeys()
{
    auto item = std::make_unique<MGConfItem>(testKey());
    auto other = std::make_unique<MGConfItem>(testKey());
    QTRY_VERIFY(isWatched(testKey()));
    item.reset();
    settle();
    QVERIFY(isWatched(testKey()));
    other.reset();
    QTRY_VERIFY(!isWatched(testKey()));

    // A watch that is not active yet is removed as well.
    for (int i = 0; i < 100; ++i) {
        MGConfItem shortLived(testKey());
    }
    settle();
    QTRY_VERIFY(!isWatched(testKey()));
}

QTEST_GUILESS_MAIN(MGConfItemChangesTest)

#include "tst_mgconfitemchanges.moc"
