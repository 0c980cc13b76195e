// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "mgconfitem.h"
#include "testkey.h"

#include <QPoint>
#include <QSignalSpy>
#include <QTest>

/// The values of MGConfItem: what is stored, and what is read.
class MGConfItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsValueAndType_data();
    void keepsValueAndType();
    void readsValuesOfOtherPrograms_data();
    void readsValuesOfOtherPrograms();
    void keepsTheDeepestValue();
    void ignoresValuesThatCannotBeStored_data();
    void ignoresValuesThatCannotBeStored();
    void largeValues();
    void defaultValue();
    void strangeKeys_data();
    void strangeKeys();
    void invalidKey_data();
    void invalidKey();
};

namespace
{
constexpr int MaxKeySize = 900;

QString longKey(int size)
{
    return QStringLiteral("/test/").leftJustified(size, QLatin1Char('a'));
}
}

void MGConfItemTest::keepsValueAndType_data()
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

void MGConfItemTest::keepsValueAndType()
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

void MGConfItemTest::readsValuesOfOtherPrograms_data()
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

void MGConfItemTest::readsValuesOfOtherPrograms()
{
    QFETCH(QString, text);
    QFETCH(QVariant, value);
    const QString key = testKey();
    store(key, text);
    QCOMPARE(MGConfItem(key).value().userType(), value.userType());
    QCOMPARE(MGConfItem(key).value(), value);
}

namespace
{
QVariant mapsAround(QVariant value, int levels)
{
    for (int i = 0; i < levels; ++i) {
        value = QVariantMap{{QStringLiteral("key"), value}};
    }
    return value;
}
}

void MGConfItemTest::keepsTheDeepestValue()
{
    const QVariant deepest = mapsAround(QStringLiteral("here"), 40);
    MGConfItem item(testKey());
    item.set(deepest);
    QCOMPARE(item.value(), deepest);
    QTRY_VERIFY(stored(item.key()).contains("here"));
    settle();
    QCOMPARE(item.value(), deepest);
}

void MGConfItemTest::ignoresValuesThatCannotBeStored_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("bytes") << QVariant(QByteArrayLiteral("a"));
    QTest::newRow("point") << QVariant(QPoint(1, 2));
    QTest::newRow("nothing in a list") << QVariant(QVariantList{1, QVariant()});
    QTest::newRow("NUL") << QVariant(QString(QChar(QChar::Null)));
    QTest::newRow("lone surrogate") << QVariant(QString(QChar(0xdc00)));
    QTest::newRow("too deep") << mapsAround(1, 400);
}

void MGConfItemTest::ignoresValuesThatCannotBeStored()
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

// The bus ends the connection of a process that sends more than it takes.
void MGConfItemTest::largeValues()
{
    constexpr int MaxSize = 16 * 1024 * 1024;
    MGConfItem item(testKey());
    const QString largest(MaxSize - 1, QLatin1Char('a')); // a null follows it
    item.set(largest);
    waitForWrites();
    QCOMPARE(item.value(), QVariant(largest));
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    const QString warning = QStringLiteral("MGConfItem: the value of \"%1\" is too large").arg(item.key());
    for (const int size : {MaxSize, 2 * MaxSize}) {
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        item.set(QString(size, QLatin1Char('b')));
        QCOMPARE(item.value(), QVariant(largest));
    }
    QCOMPARE(spy.count(), 0);
    item.set(QVariant());
    QTRY_COMPARE(stored(item.key()), QByteArray());
    waitForWrites();
}

void MGConfItemTest::defaultValue()
{
    MGConfItem item(testKey());
    QCOMPARE(item.value(QStringLiteral("default")), QVariant(QStringLiteral("default")));
    item.set(QString());
    QCOMPARE(item.value(QStringLiteral("default")), QVariant(QString()));
}

void MGConfItemTest::strangeKeys_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("blank") << QStringLiteral("/test/a key");
    QTest::newRow("not ASCII") << QStringLiteral("/test/schlüssel");
    QTest::newRow("quote") << QStringLiteral("/test/it's");
    QTest::newRow("dots") << QStringLiteral("/test/../..");
    QTest::newRow("comma and equals sign") << QStringLiteral("/test/a',type='b");
    QTest::newRow("long") << longKey(MaxKeySize);
}

void MGConfItemTest::strangeKeys()
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

void MGConfItemTest::invalidKey_data()
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
    QTest::newRow("too long") << longKey(MaxKeySize + 1);
    QTest::newRow("NUL") << QStringLiteral("/test/key") + QChar(QChar::Null);
    QTest::newRow("line break") << QStringLiteral("test/\nkey");
    QTest::newRow("right to left") << QStringLiteral("test/\u202ekey");
}

namespace
{
QStringList s_warnings;

void collectWarnings(QtMsgType, const QMessageLogContext &, const QString &text)
{
    s_warnings.append(text);
}
}

void MGConfItemTest::invalidKey()
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
    QString shown = key.left(MaxKeySize);
    shown.replace(QChar(0xd800), QChar(QChar::ReplacementCharacter));
    const QList<QChar> hidden{QChar::Null, QLatin1Char('\n'), QChar(0x202e)};
    for (const QChar character : hidden) {
        shown.replace(character, QStringLiteral("\\u{%1}").arg(int(character.unicode()), 0, 16));
    }
    QCOMPARE(s_warnings, QStringList{QStringLiteral("MGConfItem: invalid key \"%1\"").arg(shown)});
}

QTEST_GUILESS_MAIN(MGConfItemTest)

#include "tst_mgconfitem.moc"
