// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "text.h"
#include "toolkit/address.h"

#include <QTest>

/// URLs and paths that name a place in the tree.
class AddressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsUrls_data();
    void readsUrls();
    void refusesUrls_data();
    void refusesUrls();
    void readsPaths_data();
    void readsPaths();
    void refusesPaths_data();
    void refusesPaths();
    void limits();
    void urlsNameTheirPaths_data();
    void urlsNameTheirPaths();
};

void AddressTest::readsUrls_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("path");
    QTest::newRow("one name") << text("velka-settings:/a") << text("a");
    QTest::newRow("names") << text("velka-settings:/system_settings/sound") << text("system_settings/sound");
    QTest::newRow("case of the scheme") << text("Velka-Settings:/a") << text("a");
    QTest::newRow("empty host") << text("velka-settings:///a/b") << text("a/b");
    QTest::newRow("empty names") << text("velka-settings:/a//b/") << text("a/b");
    QTest::newRow("escapes") << text("velka-settings:/a%20b/%c3%A4%3F%23%25") << QString::fromUtf8("a b/ä?#%");
    QTest::newRow("not escaped") << QString::fromUtf8("velka-settings:/a b/ä:") << QString::fromUtf8("a b/ä:");
    QTest::newRow("beyond 16 bits") << text("velka-settings:/%F0%9F%94%8A")
                                    << QString::fromUtf8("\xF0\x9F\x94\x8A");
    QTest::newRow("names with dots") << text("velka-settings:/.a/b./...") << text(".a/b./...");
    QTest::newRow("escaped twice") << text("velka-settings:/%252E%252E") << text("%2E%2E");
}

void AddressTest::readsUrls()
{
    QFETCH(QString, url);
    QFETCH(QString, path);
    QCOMPARE(Address::ofUrl(url).error, QString());
    QCOMPARE(Address::ofUrl(url).path, path);
    QCOMPARE(Address::of(url).path, path);
}

void AddressTest::refusesUrls_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("reason");
    const QString scheme = text("it is no velka-settings: URL");
    const QString parts = text("it has other parts than /PATH");
    const QString encoding = text("it is wrongly encoded");
    const QString controls = text("it has control characters");
    const QString dots = text("\".\" and \"..\" are no names");
    const QString names = text("it names no entry");
    QTest::newRow("nothing") << text("") << scheme;
    QTest::newRow("a path") << text("/a") << scheme;
    QTest::newRow("another scheme") << text("https://example.com/a") << scheme;
    QTest::newRow("a file") << text("file:///etc/passwd") << scheme;
    QTest::newRow("half a scheme") << text("velka-settings") << scheme;
    QTest::newRow("no path") << text("velka-settings:") << parts;
    QTest::newRow("no slash") << text("velka-settings:a") << parts;
    QTest::newRow("host") << text("velka-settings://host/a") << parts;
    QTest::newRow("query") << text("velka-settings:/a?run") << parts;
    QTest::newRow("fragment") << text("velka-settings:/a#b") << parts;
    QTest::newRow("half an escape") << text("velka-settings:/a%2") << encoding;
    QTest::newRow("no escape") << text("velka-settings:/%zz") << encoding;
    QTest::newRow("sign in escape") << text("velka-settings:/%+1") << encoding;
    QTest::newRow("escaped slash") << text("velka-settings:/a%2fb") << encoding;
    QTest::newRow("Latin-1") << text("velka-settings:/%E4") << encoding;
    QTest::newRow("overlong") << text("velka-settings:/%C0%AE") << encoding;
    QTest::newRow("surrogate") << text("velka-settings:/%ED%A0%80") << encoding;
    QTest::newRow("null") << text("velka-settings:/a%00") << controls;
    QTest::newRow("line") << text("velka-settings:/a%0Ab") << controls;
    QTest::newRow("C1") << text("velka-settings:/a%C2%85") << controls;
    QTest::newRow("dot") << text("velka-settings:/a/./b") << dots;
    QTest::newRow("dots") << text("velka-settings:/../a") << dots;
    QTest::newRow("escaped dots") << text("velka-settings:/a/%2E%2e") << dots;
    QTest::newRow("only slashes") << text("velka-settings:///") << names;
}

void AddressTest::refusesUrls()
{
    QFETCH(QString, url);
    QFETCH(QString, reason);
    QCOMPARE(Address::ofUrl(url).error, reason);
    QCOMPARE(Address::ofUrl(url).path, QString());
}

void AddressTest::readsPaths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::newRow("names") << text("system_settings/sound") << text("system_settings/sound");
    QTest::newRow("slashes") << text("//a//b/") << text("a/b");
    QTest::newRow("signs") << text("a b/%2F?#") << text("a b/%2F?#");
    QTest::newRow("colon") << text("/a:b/c") << text("a:b/c");
    QTest::newRow("later colon") << text("a/b:c") << text("a/b:c");
    QTest::newRow("other letters") << QString::fromUtf8("ääni/\xF0\x9F\x94\x8A")
                                   << QString::fromUtf8("ääni/\xF0\x9F\x94\x8A");
}

void AddressTest::readsPaths()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    QCOMPARE(Address::of(text).error, QString());
    QCOMPARE(Address::of(text).path, path);
}

void AddressTest::refusesPaths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << text("") << text("it names no entry");
    QTest::newRow("slash") << text("/") << text("it names no entry");
    QTest::newRow("dots") << text("a/../b") << text("\".\" and \"..\" are no names");
    QTest::newRow("control") << text("a\nb") << text("it has control characters");
    QTest::newRow("null") << QString(1, QChar(0)) << text("it has control characters");
    QTest::newRow("half a character") << QString(1, QChar(0xd800)) << text("it is wrongly encoded");
    QTest::newRow("another scheme") << text("https://example.com") << text("it is no velka-settings: URL");
    QTest::newRow("no scheme") << text(":a") << text("it is no velka-settings: URL");
}

void AddressTest::refusesPaths()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);
    QCOMPARE(Address::of(text).error, reason);
    QCOMPARE(Address::of(text).path, QString());
}

void AddressTest::limits()
{
    const QString url = text("velka-settings:/") + QString(Address::MaxLength - 16, QLatin1Char('a'));
    const QString tooLong = text("it is too long");
    QCOMPARE(Address::ofUrl(url).error, QString());
    QCOMPARE(Address::ofUrl(url + QLatin1Char('a')).error, tooLong);
    QCOMPARE(Address::of(QString(Address::MaxLength - 16, QLatin1Char('a'))).error, QString());
    QCOMPARE(Address::of(QString(Address::MaxLength - 15, QLatin1Char('a'))).error, tooLong);
    QCOMPARE(Address::of(QString(Address::MaxLength / 2, QLatin1Char(' '))).error, tooLong); // as a URL
    QCOMPARE(Address::of(QString(100000000, QLatin1Char('a'))).error, tooLong);
}

void AddressTest::urlsNameTheirPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("url");
    QTest::newRow("names") << text("a/b_c-d.e~f") << text("velka-settings:/a/b_c-d.e~f");
    QTest::newRow("signs") << text("a b/%?#:") << text("velka-settings:/a%20b/%25%3F%23%3A");
    QTest::newRow("other letters") << QString::fromUtf8("ä") << text("velka-settings:/%C3%A4");
}

void AddressTest::urlsNameTheirPaths()
{
    QFETCH(QString, path);
    QFETCH(QString, url);
    QCOMPARE(Address::urlOf(path), url);
    QCOMPARE(Address::ofUrl(url).path, path);
}

QTEST_GUILESS_MAIN(AddressTest)
#include "tst_address.moc"
