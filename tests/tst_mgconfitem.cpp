// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "mgconfitem.h"

#include <QPoint>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

/// A key that no other test uses.
static QString testKey()
{
    QString key = QStringLiteral("/test/") + QLatin1String(QTest::currentTestFunction());
    if (QTest::currentDataTag()) {
        key += QLatin1Char('/') + QString::fromLatin1(QByteArray(QTest::currentDataTag()).toHex());
    }
    return key;
}

class tst_MGConfItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsValueAndType_data();
    void keepsValueAndType();
    void readsWhatOthersWrite_data();
    void readsWhatOthersWrite();
    void keepsTheDeepestValue();
    void ignoresWhatCannotBeStored_data();
    void ignoresWhatCannotBeStored();
    void defaultValue();
    void reset();
    void resetOfADirectory();
    void changeFromOutside();
    void changeFromTheSameProcess();
    void changeBeforeTheWatchStands();
    void changeOfTypeAlone();
    void equalValueIsSilent();
    void valueReadInBetweenIsTakenBack();
    void otherKeysAreSilent();
    void handlerDeletesTheItem();
    void handlerDeletesAnotherItem();
    void handlerSetsAgain();
    void handlerMakesAnItem();
    void itemsShareAKey();
    void unwatches();
    void strangeKeys_data();
    void strangeKeys();
    void invalidKey_data();
    void invalidKey();
};

void tst_MGConfItem::keepsValueAndType_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("text");

    const QStringList names{QStringLiteral("a"), QStringLiteral("b")};
    const QVariantMap map{{QStringLiteral("a"), QVariantList{1, names}}, {QStringLiteral("b"), QVariantMap()}};

    QTest::newRow("bool") << QVariant(true) << QByteArrayLiteral("true");
    QTest::newRow("uchar") << QVariant::fromValue<uchar>(7) << QByteArrayLiteral("byte 0x07");
    QTest::newRow("short") << QVariant::fromValue<short>(-3) << QByteArrayLiteral("int16 -3");
    QTest::newRow("ushort") << QVariant::fromValue<ushort>(3) << QByteArrayLiteral("uint16 3");
    QTest::newRow("int") << QVariant(-5) << QByteArrayLiteral("-5");
    QTest::newRow("uint") << QVariant(5u) << QByteArrayLiteral("uint32 5");
    QTest::newRow("qlonglong") << QVariant(-5ll) << QByteArrayLiteral("int64 -5");
    QTest::newRow("qulonglong") << QVariant(5ull) << QByteArrayLiteral("uint64 5");
    QTest::newRow("double") << QVariant(2.5) << QByteArrayLiteral("2.5");
    QTest::newRow("string") << QVariant(QStringLiteral("grün")) << QByteArrayLiteral("'grün'");
    QTest::newRow("empty string") << QVariant(QString()) << QByteArrayLiteral("''");
    QTest::newRow("string list") << QVariant(names) << QByteArrayLiteral("['a', 'b']");
    QTest::newRow("empty string list") << QVariant(QStringList()) << QByteArrayLiteral("@as []");
    QTest::newRow("list") << QVariant(QVariantList{1, 0.5}) << QByteArrayLiteral("[<1>, <0.5>]");
    QTest::newRow("empty list") << QVariant(QVariantList()) << QByteArrayLiteral("@av []");
    QTest::newRow("map") << QVariant(map) << QByteArrayLiteral("{'a': <[<1>, <['a', 'b']>]>, 'b': <@a{sv} {}>}");
    QTest::newRow("empty map") << QVariant(QVariantMap()) << QByteArrayLiteral("@a{sv} {}");
}

void tst_MGConfItem::keepsValueAndType()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, text);
    MGConfItem item(testKey());
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QVERIFY(!item.value().isValid());

    item.set(value);
    QCOMPARE(item.value().userType(), value.userType());
    QCOMPARE(item.value(), value);
    QCOMPARE(spy.count(), 1);

    QTRY_COMPARE(stored(item.key()), text);
    settle();
    QCOMPARE(item.value().userType(), value.userType());
    QCOMPARE(item.value(), value);
    QCOMPARE(spy.count(), 1);
}

void tst_MGConfItem::readsWhatOthersWrite_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value");

    const QString a = QStringLiteral("a");
    QTest::newRow("numbers") << QStringLiteral("[1, 2]") << QVariant(QVariantList{1, 2});
    QTest::newRow("map of strings") << QStringLiteral("{'a': 'a'}") << QVariant(QVariantMap{{a, a}});
    QTest::newRow("string lists") << QStringLiteral("[['a']]") << QVariant(QVariantList{QStringList{a}});
    QTest::newRow("object path") << QStringLiteral("objectpath '/a'") << QVariant(QStringLiteral("/a"));
    QTest::newRow("variant") << QStringLiteral("<'a'>") << QVariant(a);
    QTest::newRow("tuple") << QStringLiteral("('a', 1)") << QVariant(QVariantList{a, 1});
}

void tst_MGConfItem::readsWhatOthersWrite()
{
    QFETCH(QString, text);
    QFETCH(QVariant, value);
    const QString key = testKey();
    store(key, text);
    QCOMPARE(MGConfItem(key).value().userType(), value.userType());
    QCOMPARE(MGConfItem(key).value(), value);
}

static QVariant mapsAround(QVariant value, int levels)
{
    for (int i = 0; i < levels; ++i) {
        value = QVariantMap{{QStringLiteral("key"), value}};
    }
    return value;
}

void tst_MGConfItem::keepsTheDeepestValue()
{
    const QVariant deepest = mapsAround(QStringLiteral("here"), 40);
    MGConfItem item(testKey());
    item.set(deepest);
    QCOMPARE(item.value(), deepest);
    QTRY_VERIFY(stored(item.key()).contains("here"));
    settle();
    QCOMPARE(item.value(), deepest);
}

void tst_MGConfItem::ignoresWhatCannotBeStored_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("bytes") << QVariant(QByteArrayLiteral("a"));
    QTest::newRow("point") << QVariant(QPoint(1, 2));
    QTest::newRow("nothing in a list") << QVariant(QVariantList{1, QVariant()});
    QTest::newRow("NUL") << QVariant(QString(QChar(QChar::Null)));
    QTest::newRow("lone surrogate") << QVariant(QString(QChar(0xdc00)));
    QTest::newRow("too deep") << mapsAround(1, 400);
}

void tst_MGConfItem::ignoresWhatCannotBeStored()
{
    QFETCH(QVariant, value);
    MGConfItem item(testKey());
    item.set(1);
    QSignalSpy spy(&item, &MGConfItem::valueChanged);

    const QString warning = QStringLiteral("MGConfItem: cannot store the value of \"%1\"").arg(item.key());
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    item.set(value);
    QCOMPARE(item.value(), QVariant(1));
    QCOMPARE(spy.count(), 0);
}

void tst_MGConfItem::defaultValue()
{
    MGConfItem item(testKey());
    QCOMPARE(item.value(QStringLiteral("default")), QVariant(QStringLiteral("default")));
    item.set(QString());
    QCOMPARE(item.value(QStringLiteral("default")), QVariant(QString()));
}

void tst_MGConfItem::reset()
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

void tst_MGConfItem::resetOfADirectory()
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

void tst_MGConfItem::changeFromOutside()
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

void tst_MGConfItem::changeFromTheSameProcess()
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

void tst_MGConfItem::changeBeforeTheWatchStands()
{
    MGConfItem item(testKey());
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    store(item.key(), QStringLiteral("1"));
    QTRY_COMPARE(spy.count(), 1);
    settle();
    QCOMPARE(spy.count(), 1);
}

void tst_MGConfItem::changeOfTypeAlone()
{
    MGConfItem item(testKey());
    item.set(QVariantList{1});
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    item.set(QVariantList{QStringLiteral("1")});
    QCOMPARE(spy.count(), 1);
}

void tst_MGConfItem::equalValueIsSilent()
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

void tst_MGConfItem::valueReadInBetweenIsTakenBack()
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

void tst_MGConfItem::otherKeysAreSilent()
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

void tst_MGConfItem::handlerDeletesTheItem()
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

void tst_MGConfItem::handlerDeletesAnotherItem()
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

void tst_MGConfItem::handlerSetsAgain()
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

void tst_MGConfItem::handlerMakesAnItem()
{
    MGConfItem item(testKey());
    std::vector<std::unique_ptr<MGConfItem>> made;
    int changes = 0;
    connect(&item, &MGConfItem::valueChanged, this, [&]() {
        made.push_back(std::make_unique<MGConfItem>(item.key()));
        connect(made.back().get(), &MGConfItem::valueChanged, this, [&changes]() { ++changes; });
    });
    item.set(1);
    QCOMPARE(made.size(), size_t(1));
    QCOMPARE(made.front()->value(), QVariant(1));
    QCOMPARE(changes, 0);
    item.set(2);
    QCOMPARE(changes, 1);
}

void tst_MGConfItem::itemsShareAKey()
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

void tst_MGConfItem::unwatches()
{
    auto item = std::make_unique<MGConfItem>(testKey());
    auto other = std::make_unique<MGConfItem>(testKey());
    QTRY_VERIFY(isWatched(testKey()));
    item.reset();
    settle();
    QVERIFY(isWatched(testKey()));
    other.reset();
    QTRY_VERIFY(!isWatched(testKey()));

    // Not even a watch that does not stand yet is left behind.
    for (int i = 0; i < 100; ++i) {
        MGConfItem shortLived(testKey());
    }
    settle();
    QTRY_VERIFY(!isWatched(testKey()));
}

void tst_MGConfItem::strangeKeys_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("blank") << QStringLiteral("/test/a key");
    QTest::newRow("not ASCII") << QStringLiteral("/test/schlüssel");
    QTest::newRow("quote") << QStringLiteral("/test/it's");
    QTest::newRow("dots") << QStringLiteral("/test/../..");
    QTest::newRow("comma and equals sign") << QStringLiteral("/test/a',type='b");
    QTest::newRow("long") << QStringLiteral("/test/") + QString(10000, QLatin1Char('a'));
}

void tst_MGConfItem::strangeKeys()
{
    QFETCH(QString, key);
    MGConfItem item(key);
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QCOMPARE(item.key(), key);
    item.set(1);
    QCOMPARE(item.value(), QVariant(1));
    QTRY_COMPARE(stored(item.key()), QByteArrayLiteral("1"));
    settle();
    QCOMPARE(item.value(), QVariant(1));
    QCOMPARE(spy.count(), 1);
}

void tst_MGConfItem::invalidKey_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("no leading slash") << QStringLiteral("test/key");
    QTest::newRow("trailing slash") << QStringLiteral("/test/key/");
    QTest::newRow("doubled slash") << QStringLiteral("/test//key");
    QTest::newRow("leading slash doubled") << QStringLiteral("//test/key");
    QTest::newRow("root") << QStringLiteral("/");
    QTest::newRow("lone surrogate") << QStringLiteral("/test/") + QChar(0xd800);
    QTest::newRow("NUL") << QStringLiteral("/test/key") + QChar(QChar::Null);
}

static QStringList s_warnings;

static void collectWarnings(QtMsgType, const QMessageLogContext &, const QString &text)
{
    s_warnings.append(text);
}

void tst_MGConfItem::invalidKey()
{
    QFETCH(QString, key);
    s_warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);
    {
        MGConfItem item(key);
        QSignalSpy spy(&item, &MGConfItem::valueChanged);
        item.set(1);
        item.set(QVariant());
        item.set(QPoint());
        qInstallMessageHandler(previous);
        QCOMPARE(item.key(), key);
        QCOMPARE(item.value(), QVariant());
        QCOMPARE(item.value(2), QVariant(2));
        QCOMPARE(spy.count(), 0);
    }
    QCOMPARE(
        s_warnings,
        QStringList{QStringLiteral("MGConfItem: invalid key \"%1\"").arg(QString::fromUtf8(qUtf8Printable(key)))});
}

QTEST_GUILESS_MAIN(tst_MGConfItem)

#include "tst_mgconfitem.moc"
