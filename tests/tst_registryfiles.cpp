// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"

#include "common/constants.h"
#include "common/messages.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>
#include <orvantaaccesscontrol.h>

#include <QDir>
#include <QFile>
#include <QTest>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
QString entriesPath(const char *name)
{
    return Constants::EntriesDirectory + QLatin1Char('/') + text(name);
}
}

class RegistryFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void lineEndings();
    void silentFiles_data();
    void silentFiles();
    void refusedFiles_data();
    void refusedFiles();
    void unreadableFile();
    void notAFile_data();
    void notAFile();
    void entryWithoutPath();
    void fakeIsMatchedWithItsCase();
    void pathOfAnotherType_data();
    void pathOfAnotherType();

    void hostileFiles_data();
    void hostileFiles();
    void manyEntriesInOneFile();
    void longCatalogName();
};

void RegistryFilesTest::init()
{
    World::reset();
}

void RegistryFilesTest::lineEndings()
{
    World::writeEntries(text("x.json"),
                        "{\r\n\"entries\":\r\n[{\"path\": \"a\", \"title\": \"two\r\nlines\"}]\r\n}\r\n");
    const PluginRegistry registry;
    QCOMPARE(registry.getItem(path("a"))->title(), text("two\nlines"));
}

void RegistryFilesTest::silentFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("only an object") << text("x.json") << QByteArray("{}");
    QTest::newRow("entries of another type") << text("x.json") << QByteArray(R"({"entries": "a"})");
    QTest::newRow("fake") << text("fakex.json") << declaring("X", {"x"});
    QTest::newRow("fake alone") << text("fake.json") << declaring("X", {"x"});
    QTest::newRow("another ending") << text("x.json~") << declaring("X", {"x"});
    QTest::newRow("another case") << text("x.JSON") << declaring("X", {"x"});
    QTest::newRow("hidden") << text(".x.json") << declaring("X", {"x"});
}

void RegistryFilesTest::silentFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, json);
    World::writeEntries(name, json);
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(paths(registry), QStringList());
}

void RegistryFilesTest::refusedFiles_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");
    const QString notJson = settingsWarning(Messages::CannotParseJson, text("b.json"));
    QTest::newRow("empty") << QByteArray() << notJson;
    QTest::newRow("syntax error") << QByteArray("{") << notJson;
    QTest::newRow("invalid UTF-8") << QByteArray("{\"entries\": [{\"path\": \"\xc3\x28\"}]}") << notJson;
    QTest::newRow("array") << QByteArray(R"([{"path": "x"}])")
                           << settingsWarning(Messages::WrongRegistrationFormat, text("b.json"));
}

void RegistryFilesTest::refusedFiles()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, message);
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    World::writeEntries(text("b.json"), json);
    World::writeEntries(text("c.json"), declaring("C", {"c"}));
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(), QStringList{message});
    QCOMPARE(paths(registry), path("a/c"));
}

void RegistryFilesTest::unreadableFile()
{
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    World::writeEntries(text("b.json"), declaring("B", {"b"}));
    QVERIFY(QFile::setPermissions(entriesPath("a.json"), {}));
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(), QStringList{settingsWarning("Can't read entries file", text("a.json"))});
    QCOMPARE(paths(registry), path("b"));
}

void RegistryFilesTest::notAFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("directory") << text("directory");
    QTest::newRow("dangling link") << text("link");
    QTest::newRow("pipe") << text("pipe"); // opening a pipe would wait for its other end
    QTest::newRow("missing") << text("missing");
}

void RegistryFilesTest::notAFile()
{
    QFETCH(QString, kind);
    const QString file = entriesPath("x.json");
    if (kind == text("directory")) {
        QVERIFY(QDir().mkdir(file));
    } else if (kind == text("link")) {
        QVERIFY(QFile::link(text("/nowhere/x.json"), file));
    } else if (kind == text("pipe")) {
        QCOMPARE(mkfifo(qPrintable(file), 0600), 0);
    }
    World::writeEntries(text("b.json"), declaring("B", {"b"}));
    const MessageLog log;
    PluginRegistry registry;
    QCOMPARE(log.take(), QStringList()); // not listed at all
    registry.addEntriesForFile(text("x.json"));
    QCOMPARE(log.take(), QStringList{settingsWarning("Can't read entries file", text("x.json"))});
    QCOMPARE(paths(registry), path("b"));
}

void RegistryFilesTest::entryWithoutPath()
{
    World::writeEntries(text("x.json"), R"({"entries": [{"title": "none"}, 7, null, {"path": "a"}, {}]})");
    const MessageLog log;
    const PluginRegistry registry;
    const QString message = settingsWarning("Mandatory field \"path\" missing in entry on file", text("x.json"));
    QCOMPARE(log.take(), (QStringList{message, message, message, message}));
    QCOMPARE(paths(registry), path("a"));
}

void RegistryFilesTest::fakeIsMatchedWithItsCase()
{
    World::writeEntries(text("Fakex.json"), declaring("X", {"x"}));
    const PluginRegistry registry;
    QCOMPARE(paths(registry), path("x"));
}

void RegistryFilesTest::pathOfAnotherType_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QStringList>("nodes");
    QTest::newRow("null") << QByteArray("null") << QStringList(); // there, and as empty as ""
    QTest::newRow("number") << QByteArray("7") << path("7");
    QTest::newRow("large number") << QByteArray("1000000") << path("1e+06"); // a double like any other
    QTest::newRow("boolean") << QByteArray("true") << path("true");
    QTest::newRow("array") << QByteArray("[\"a\"]") << QStringList();
}

void RegistryFilesTest::pathOfAnotherType()
{
    QFETCH(QByteArray, value);
    World::writeEntries(text("x.json"), R"({"entries": [{"path": )" + value + "}]}");
    const MessageLog log;
    const PluginRegistry registry;
    QTEST(paths(registry), "nodes");
    QCOMPARE(registry.getItem({})->isDeclared(), paths(registry).isEmpty());
    QCOMPARE(log.take(), QStringList());
}

void RegistryFilesTest::hostileFiles_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<int>("nodes");
    QByteArray components;
    for (int i = 0; i < 1000000; ++i) {
        components += "a/";
    }
    QTest::newRow("a million components") << components << 1000000;
    QTest::newRow("a name of one MiB") << QByteArray(1 << 20, 'x') << 1;
    QTest::newRow("a MiB of slashes") << QByteArray(1 << 20, '/') << 0;
    QTest::newRow("dots and controls") << QByteArray("../.\\u0000\\u001f\\ud800/%s%n") << 3;
}

void RegistryFilesTest::hostileFiles()
{
    QFETCH(QByteArray, path);
    QFETCH(int, nodes);
    World::writeEntries(text("a.json"), declaring("X", {path}));
    World::writeEntries(text("b.json"), declaring("B", {"neighbour"}));
    const MessageLog log;
    PluginRegistry registry;
    QCOMPARE(registry.getItem({})->count(-1), nodes + 1);
    QVERIFY(registry.getItem({text("neighbour")}));
    registry.removeEntriesForFile(text("a.json"));
    QCOMPARE(paths(registry), QStringList{text("neighbour")});
    QCOMPARE(log.take(), QStringList());
}

void RegistryFilesTest::manyEntriesInOneFile()
{
    QList<QByteArray> declared;
    for (int i = 0; i < 100000; ++i) {
        declared.append("group" + QByteArray::number(i % 300) + "/entry" + QByteArray::number(i));
    }
    World::writeEntries(text("a.json"), declaring("X", declared));
    World::writeEntries(text("b.json"), declaring("B", {"neighbour"}));
    PluginRegistry registry;
    QCOMPARE(registry.getItem({})->count(-1), 100301);
    QStringList masked;
    for (int i = 0; i < 50000; ++i) {
        masked.append(QString::fromLatin1(declared.at(i)));
    }
    World::setMasked(masked);
    QTRY_COMPARE_WITH_TIMEOUT(registry.getItem({})->count(-1), 50301, 20000);
    World::removeEntries(text("a.json"));
    World::rescan(&registry);
    QCOMPARE(paths(registry), QStringList{text("neighbour")});
}

void RegistryFilesTest::longCatalogName()
{
    World::writeEntries(text("a.json"), R"({"translation_catalog": ")" + QByteArray(1 << 20, '_')
                                            + R"(", "entries": [{"path": "a"}]})");
    World::writeEntries(text("b.json"), declaring("B", {"b"}));
    CpuTimer timer;
    timer.start();
    const PluginRegistry registry;
    QCOMPARE(paths(registry), path("a/b"));
    QVERIFY2(timer.nsecsElapsed() < 10'000'000'000, qPrintable(QString::number(timer.nsecsElapsed())));
}

QTEST_GUILESS_MAIN(RegistryFilesTest)
#include "tst_registryfiles.moc"
