// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconfvariant.h"

#include <QPoint>
#include <QTest>

#include <limits>

class DConfVariantTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothWays_data();
    void bothWays();
    void reads_data();
    void reads();
    void readsNothing_data();
    void readsNothing();
    void text_data();
    void text();
    void refuses_data();
    void refuses();
    void deepLists();
    void deepMaps();
    void deepBytes();
    void deepType();
};

namespace
{
QVariant listsAround(QVariant value, int levels)
{
    for (int i = 0; i < levels; ++i) {
        value = QVariantList{value};
    }
    return value;
}

QVariant mapsAround(QVariant value, int levels)
{
    for (int i = 0; i < levels; ++i) {
        value = QVariantMap{{QStringLiteral("key"), value}};
    }
    return value;
}

/// Returns a value as a database has it: as bytes, not as a tree in memory.
GVariantPointer fromBytes(const char *type, const QByteArray &bytes)
{
    GBytes *const data = g_bytes_new(bytes.constData(), gsize(bytes.size()));
    GVariant *const value = g_variant_new_from_bytes(G_VARIANT_TYPE(type), data, FALSE);
    g_bytes_unref(data);
    return GVariantPointer(g_variant_ref_sink(value));
}

GVariantPointer reread(GVariant *value)
{
    const auto *const data = static_cast<const char *>(g_variant_get_data(value));
    return fromBytes(g_variant_get_type_string(value), QByteArray(data, int(g_variant_get_size(value))));
}

GVariantPointer parse(const QByteArray &text)
{
    return GVariantPointer(g_variant_parse(nullptr, text.constData(), nullptr, nullptr, nullptr));
}
}

void DConfVariantTest::bothWays_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("stored");

    const QStringList names{QStringLiteral("a"), QString(), QStringLiteral("ü")};
    const QVariantList list{1, QStringLiteral("a"), names, 0.5};
    const QVariantMap map{{QStringLiteral("list"), list}, {QString(), true}};

    QTest::newRow("true") << QVariant(true) << QByteArrayLiteral("true");
    QTest::newRow("false") << QVariant(false) << QByteArrayLiteral("false");
    QTest::newRow("byte") << QVariant::fromValue<uchar>(255) << QByteArrayLiteral("byte 0xff");
    QTest::newRow("int16") << QVariant::fromValue<short>(-32768) << QByteArrayLiteral("int16 -32768");
    QTest::newRow("uint16") << QVariant::fromValue<ushort>(65535) << QByteArrayLiteral("uint16 65535");
    QTest::newRow("int32") << QVariant(std::numeric_limits<int>::min()) << QByteArrayLiteral("-2147483648");
    QTest::newRow("uint32") << QVariant(std::numeric_limits<uint>::max())
                            << QByteArrayLiteral("uint32 4294967295");
    QTest::newRow("int64") << QVariant(std::numeric_limits<qlonglong>::min())
                           << QByteArrayLiteral("int64 -9223372036854775808");
    QTest::newRow("uint64") << QVariant(std::numeric_limits<qulonglong>::max())
                            << QByteArrayLiteral("uint64 18446744073709551615");
    QTest::newRow("double") << QVariant(2.5) << QByteArrayLiteral("2.5");
    QTest::newRow("whole double") << QVariant(2.0) << QByteArrayLiteral("2.0");
    QTest::newRow("infinite") << QVariant(std::numeric_limits<double>::infinity()) << QByteArrayLiteral("inf");
    QTest::newRow("string") << QVariant(QStringLiteral("grün")) << QByteArrayLiteral("'grün'");
    QTest::newRow("empty string") << QVariant(QString()) << QByteArrayLiteral("''");
    QTest::newRow("string list") << QVariant(names) << QByteArrayLiteral("['a', '', 'ü']");
    QTest::newRow("empty string list") << QVariant(QStringList()) << QByteArrayLiteral("@as []");
    QTest::newRow("list") << QVariant(list) << QByteArrayLiteral("[<1>, <'a'>, <['a', '', 'ü']>, <0.5>]");
    QTest::newRow("empty list") << QVariant(QVariantList()) << QByteArrayLiteral("@av []");
    QTest::newRow("map") << QVariant(map)
                         << QByteArrayLiteral("{'': <true>, 'list': <[<1>, <'a'>, <['a', '', 'ü']>, <0.5>]>}");
    QTest::newRow("empty map") << QVariant(QVariantMap()) << QByteArrayLiteral("@a{sv} {}");
}

void DConfVariantTest::bothWays()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, stored);
    const GVariantPointer variant = toGVariant(value);
    QVERIFY(variant);
    QVERIFY(!g_variant_is_floating(variant.get()));
    char *const printed = g_variant_print(variant.get(), TRUE);
    const QByteArray text(printed);
    g_free(printed);
    QCOMPARE(text, stored);

    const QVariant read = fromGVariant(reread(variant.get()).get());
    QCOMPARE(read.userType(), value.userType());
    QCOMPARE(read, value);
}

void DConfVariantTest::reads_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QVariant>("value");

    const QString a = QStringLiteral("a");
    QTest::newRow("object path") << QByteArrayLiteral("objectpath '/a'") << QVariant(QStringLiteral("/a"));
    QTest::newRow("signature") << QByteArrayLiteral("signature 'as'") << QVariant(QStringLiteral("as"));
    QTest::newRow("variant") << QByteArrayLiteral("<<'a'>>") << QVariant(a);
    QTest::newRow("maybe") << QByteArrayLiteral("just 5") << QVariant(5);
    QTest::newRow("numbers") << QByteArrayLiteral("[1, 2]") << QVariant(QVariantList{1, 2});
    QTest::newRow("no numbers") << QByteArrayLiteral("@ai []") << QVariant(QVariantList());
    QTest::newRow("object paths") << QByteArrayLiteral("[objectpath '/a']")
                                  << QVariant(QVariantList{QStringLiteral("/a")});
    QTest::newRow("string lists") << QByteArrayLiteral("[['a'], []]")
                                  << QVariant(QVariantList{QStringList{a}, QStringList()});
    QTest::newRow("tuple") << QByteArrayLiteral("('a', 1, true)") << QVariant(QVariantList{a, 1, true});
    QTest::newRow("empty tuple") << QByteArrayLiteral("()") << QVariant(QVariantList());
    QTest::newRow("strings by name") << QByteArrayLiteral("{'a': 'a'}") << QVariant(QVariantMap{{a, a}});
    QTest::newRow("strings by number") << QByteArrayLiteral("{1: 'a'}")
                                       << QVariant(QVariantMap{{QStringLiteral("1"), a}});
    QTest::newRow("strings by byte") << QByteArrayLiteral("{byte 0x41: 'a', 0x00: 'a'}")
                                     << QVariant(QVariantMap{{QStringLiteral("0"), a}, {QStringLiteral("65"), a}});
    QTest::newRow("strings by handle") << QByteArrayLiteral(
        "{handle 1: 'a', 2: 'a'}") << QVariant(QVariantMap{{QStringLiteral("1"), a}, {QStringLiteral("2"), a}});
    QTest::newRow("entry") << QByteArrayLiteral("{'a', 1}") << QVariant(QVariantList{a, 1});
    QTest::newRow("maps") << QByteArrayLiteral("[{'a': 1}, {}]")
                          << QVariant(QVariantList{QVariantMap{{a, 1}}, QVariantMap()});
}

void DConfVariantTest::reads()
{
    QFETCH(QByteArray, stored);
    QFETCH(QVariant, value);
    const GVariantPointer variant = parse(stored);
    QVERIFY(variant);
    const QVariant read = fromGVariant(variant.get());
    QCOMPARE(read.userType(), value.userType());
    QCOMPARE(read, value);
}

void DConfVariantTest::readsNothing_data()
{
    QTest::addColumn<QByteArray>("stored");

    QTest::newRow("no value") << QByteArrayLiteral("syntax error");
    QTest::newRow("maybe") << QByteArrayLiteral("@mi nothing");
    QTest::newRow("handle") << QByteArrayLiteral("handle 1");
}

void DConfVariantTest::readsNothing()
{
    QFETCH(QByteArray, stored);
    QVERIFY(!fromGVariant(parse(stored).get()).isValid());
}

void DConfVariantTest::text_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("byte order mark") << QStringLiteral("\ufeffa");
    QTest::newRow("byte order mark alone") << QStringLiteral("\ufeff");
    QTest::newRow("no character") << QStringLiteral("\uffff\ufffe");
    QTest::newRow("outside the basic plane") << QStringLiteral("\U0001f600");
    QTest::newRow("control characters") << QStringLiteral("\x01\n\r\t\x7f");
    QTest::newRow("long") << QString(1000000, QChar(0xe9));
}

void DConfVariantTest::text()
{
    QFETCH(QString, text);
    const QVariantMap value{{text, QVariantList{text, QStringList{text}}}};
    const GVariantPointer variant = toGVariant(value);
    QVERIFY(variant);
    QCOMPARE(fromGVariant(reread(variant.get()).get()).toMap(), value);
}

void DConfVariantTest::refuses_data()
{
    QTest::addColumn<QVariant>("value");

    const QString nul = QStringLiteral("a") + QChar(QChar::Null);
    const QString lone = QChar(0xd800) + QStringLiteral("a");
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null pointer") << QVariant::fromValue(nullptr);
    QTest::newRow("bytes") << QVariant(QByteArrayLiteral("a"));
    QTest::newRow("point") << QVariant(QPoint(1, 2));
    QTest::newRow("NUL") << QVariant(nul);
    QTest::newRow("lone surrogate") << QVariant(lone);
    QTest::newRow("in a string list") << QVariant(QStringList{QStringLiteral("a"), lone});
    QTest::newRow("in a list") << QVariant(QVariantList{1, QVariant()});
    QTest::newRow("in a map") << QVariant(QVariantMap{{QStringLiteral("a"), QPoint(1, 2)}});
    QTest::newRow("key of a map") << QVariant(QVariantMap{{nul, 1}});
    QTest::newRow("deep in lists and maps") << mapsAround(listsAround(QVariant(), 3), 3);
}

void DConfVariantTest::refuses()
{
    QFETCH(QVariant, value);
    QVERIFY(!toGVariant(value));
}

void DConfVariantTest::deepLists()
{
    const QVariant deepest = listsAround(1, 40);
    const GVariantPointer variant = toGVariant(deepest);
    QVERIFY(variant);
    QVERIFY(g_variant_is_normal_form(reread(variant.get()).get()));
    QCOMPARE(fromGVariant(reread(variant.get()).get()), deepest);

    QVERIFY(!toGVariant(listsAround(1, 41)));
    QVERIFY(!toGVariant(listsAround(1, 400)));
}

void DConfVariantTest::deepMaps()
{
    const QVariant deepest = mapsAround(1, 40);
    const GVariantPointer variant = toGVariant(deepest);
    QVERIFY(variant);
    QVERIFY(g_variant_is_normal_form(reread(variant.get()).get()));
    QCOMPARE(fromGVariant(reread(variant.get()).get()), deepest);

    QVERIFY(!toGVariant(mapsAround(1, 41)));
    QVERIFY(!toGVariant(mapsAround(1, 400)));
}

// A variant consists of the bytes of its value, a zero and the type of the value.
void DConfVariantTest::deepBytes()
{
    QByteArray bytes = QByteArrayLiteral("\x01");
    bytes += QByteArray("\0y", 2);
    for (int i = 0; i < 100000; ++i) {
        bytes += QByteArray("\0v", 2);
    }
    QVERIFY(fromGVariant(fromBytes("v", bytes).get()) != QVariant::fromValue<uchar>(1));
}

void DConfVariantTest::deepType()
{
    const QByteArray bytes = QByteArray(1000, '\0') + QByteArray("\0", 1) + QByteArray(100000, 'a') + 'y';
    const QVariant read = fromGVariant(fromBytes("v", bytes).get());
    QCOMPARE(read, QVariant(QVariantList()));
}

QTEST_APPLESS_MAIN(DConfVariantTest)

#include "tst_dconfvariant.moc"
