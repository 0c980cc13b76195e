// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"

#include "common/constants.h"
#include "common/messages.h"
#include "dconftool.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>
#include <orvantaaccesscontrol.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QPointer>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace
{
/// A registration file with an entry, titled with the file's name, at each of @p paths.
QByteArray declaring(const QByteArray &title, const QList<QByteArray> &paths)
{
    QByteArray json = "{\"entries\": [";
    for (const QByteArray &path : paths) {
        json += "{\"path\": \"" + path + "\", \"title\": \"" + title + "\"},";
    }
    json.chop(paths.isEmpty() ? 0 : 1);
    return json + "]}";
}

QStringList paths(const PluginRegistry &registry)
{
    return World::paths(registry.getItem({}));
}

QString fileOf(const PluginRegistry &registry, const char *joined)
{
    const TreeItem *item = registry.getItem(path(joined));
    return item ? item->fromFile() : text("no node");
}

QString entriesPath(const char *name)
{
    return Constants::EntriesDirectory + QLatin1Char('/') + text(name);
}

QByteArray ownGroup()
{
    return getgrgid(getegid())->gr_name;
}

/// A group of the system that the user of this process is not in.
QByteArray foreignGroup()
{
    QByteArray name;
    setgrent();
    while (const group *entry = getgrent()) {
        if (!orvanta_access_control_hasgroup(geteuid(), entry->gr_name)) {
            name = entry->gr_name;
            break;
        }
    }
    endgrent();
    return name;
}
}

class PluginRegistryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void getItem();

    void ordinaryFile();
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
    void laterFileWins();
    void laterEntryWins();
    void listingOrderIgnoresCase();
    void intermediateNodes();
    void slashes_data();
    void slashes();
    void emptyPathGoesToTheRoot();
    void fromFileIsTheRealName();
    void parsingIsLoggedAtInfoLevel();
    void groups_data();
    void groups();

    void removalKeepsWhatHasChildren();
    void removalInTheOtherOrder();
    void removalTakesEmptyUndeclaredNodes();
    void removalAndAdditionAreSilent();
    void removalMatchesReference();

    void scansOnceAfterTwoSeconds();
    void burstIsOneBatch();
    void changeRestartsTheDelay();
    void fileVanishes();
    void fileIsRenamed();
    void fileIsRenamedToFake();
    void fileIsRewritten();
    void refusedFileIsNotRetried();
    void unchangedDirectoryIsSilent();
    void nodesDieBeforeContentChanged();
    void missingDirectory();
    void treeIsDumpedAtInfoLevel();
    void treeIsDumpedAfterContentChanged();

    void maskHidesAndUnmaskRestores();
    void maskFromAnotherProcess();
    void maskNeedsTheExactSpelling();
    void maskLeavesEntriesBelow();
    void maskLeavesOtherSpellingAlone();
    void maskLeavesOtherFileAlone();
    void maskOfSeveralEntriesIsOneBatch();
    void maskOfUnknownEntryWaits();
    void maskWithoutEffectIsSilent();
    void maskOfUndeclaredNode();
    void blacklistedPathIsMaskedAtStartOnly();
    void maskedEntryOfVanishedFileIsForgotten();
    void maskOfWrongType();

    void hostileFiles_data();
    void hostileFiles();
    void manyEntriesInOneFile();
    void longCatalogName();
    void manyVanishedFilesInOnePass();
    void manyFilesMaskedAtOnce();

    void instanceIsOne(); // last: from there on it lives
};

void PluginRegistryTest::init()
{
    World::reset();
}

void PluginRegistryTest::getItem()
{
    World::writeEntries(text("a.json"), declaring("A", {"a/b"}));
    const PluginRegistry registry;
    QCOMPARE(registry.getItem({})->name(), QString());
    QVERIFY(registry.getItem({})->data().isEmpty());
    QCOMPARE(registry.getItem(path("unknown")), nullptr);
    QCOMPARE(registry.getItem(path("a/unknown/b")), nullptr);
    QCOMPARE(registry.getItem(path("a/b"))->title(), text("A"));
}

void PluginRegistryTest::ordinaryFile()
{
    World::writeEntries(text("a.json"),
                        R"({"unknown": 1, "entries": [{"path": "a", "order": 3, "custom": ["x", 1]}]})");
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(), QStringList());
    const QVariantMap expected{{text("path"), text("a")},
                               {text("order"), 3.0},
                               {text("custom"), QVariantList{text("x"), 1.0}},
                               {text("from_file"), text("a.json")}};
    QCOMPARE(registry.getItem(path("a"))->data(), expected);
}

void PluginRegistryTest::lineEndings()
{
    World::writeEntries(text("x.json"),
                        "{\r\n\"entries\":\r\n[{\"path\": \"a\", \"title\": \"two\r\nlines\"}]\r\n}\r\n");
    const PluginRegistry registry;
    QCOMPARE(registry.getItem(path("a"))->title(), text("two\nlines"));
}

void PluginRegistryTest::silentFiles_data()
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

void PluginRegistryTest::silentFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, json);
    World::writeEntries(name, json);
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::refusedFiles_data()
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

void PluginRegistryTest::refusedFiles()
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

void PluginRegistryTest::unreadableFile()
{
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    World::writeEntries(text("b.json"), declaring("B", {"b"}));
    QVERIFY(QFile::setPermissions(entriesPath("a.json"), {}));
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(), QStringList{settingsWarning("Can't read entries file", text("a.json"))});
    QCOMPARE(paths(registry), path("b"));
}

void PluginRegistryTest::notAFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("directory") << text("directory");
    QTest::newRow("dangling link") << text("link");
    QTest::newRow("pipe") << text("pipe"); // to open one would wait for its other end
    QTest::newRow("missing") << text("missing");
}

void PluginRegistryTest::notAFile()
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

void PluginRegistryTest::entryWithoutPath()
{
    World::writeEntries(text("x.json"), R"({"entries": [{"title": "none"}, 7, null, {"path": "a"}, {}]})");
    const MessageLog log;
    const PluginRegistry registry;
    const QString message = settingsWarning("Mandatory field \"path\" missing in entry on file", text("x.json"));
    QCOMPARE(log.take(), (QStringList{message, message, message, message}));
    QCOMPARE(paths(registry), path("a"));
}

void PluginRegistryTest::fakeIsMatchedWithItsCase()
{
    World::writeEntries(text("Fakex.json"), declaring("X", {"x"}));
    const PluginRegistry registry;
    QCOMPARE(paths(registry), path("x"));
}

void PluginRegistryTest::pathOfAnotherType_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QStringList>("nodes");
    QTest::newRow("null") << QByteArray("null") << QStringList(); // there, and as empty as ""
    QTest::newRow("number") << QByteArray("7") << path("7");
    QTest::newRow("large number") << QByteArray("1000000") << path("1e+06"); // a double as any other
    QTest::newRow("boolean") << QByteArray("true") << path("true");
    QTest::newRow("array") << QByteArray("[\"a\"]") << QStringList();
}

void PluginRegistryTest::pathOfAnotherType()
{
    QFETCH(QByteArray, value);
    World::writeEntries(text("x.json"), R"({"entries": [{"path": )" + value + "}]}");
    const MessageLog log;
    const PluginRegistry registry;
    QTEST(paths(registry), "nodes");
    QCOMPARE(registry.getItem({})->isDeclared(), paths(registry).isEmpty());
    QCOMPARE(log.take(), QStringList());
}

void PluginRegistryTest::laterFileWins()
{
    World::writeEntries(text("1.json"), R"({"entries": [{"path": "a", "title": "One", "icon": "one"}]})");
    World::writeEntries(text("2.json"), R"({"entries": [{"path": "a", "title": "Two"}]})");
    PluginRegistry registry;
    QCOMPARE(fileOf(registry, "a"), text("2.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Two"));
    QCOMPARE(registry.getItem(path("a"))->icon(), QString());
    // What was replaced does not come back.
    registry.removeEntriesForFile(text("2.json"));
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::laterEntryWins()
{
    World::writeEntries(text("x.json"),
                        R"({"entries": [{"path": "a", "title": "One"}, {"path": "/a/", "title": "Two"}]})");
    const PluginRegistry registry;
    QCOMPARE(registry.getItem(path("a"))->title(), text("Two"));
}

void PluginRegistryTest::listingOrderIgnoresCase()
{
    World::writeEntries(text("B.json"), declaring("B", {"x"}));
    World::writeEntries(text("a.json"), declaring("a", {"x"}));
    const PluginRegistry registry;
    QCOMPARE(fileOf(registry, "x"), text("B.json"));
}

void PluginRegistryTest::intermediateNodes()
{
    World::writeEntries(text("1.json"), declaring("One", {"a/b/c"}));
    PluginRegistry registry;
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b"), text("a/b/c")}));
    const QPointer<TreeItem> b = registry.getItem(path("a/b"));
    QVERIFY(b->data().isEmpty());
    QCOMPARE(b->title(), text("!!b"));
    QCOMPARE(b->type(), text("section"));
    World::writeEntries(text("2.json"), declaring("Two", {"a/b"}));
    registry.addEntriesForFile(text("2.json"));
    QCOMPARE(b->title(), text("Two"));
    QCOMPARE(registry.getItem(path("a/b")), b.data());
    QCOMPARE(fileOf(registry, "a/b/c"), text("1.json"));
}

void PluginRegistryTest::slashes_data()
{
    QTest::addColumn<QByteArray>("written");
    for (const char *written : {"x/y/z", "/x/y/z", "x//y/z", "x/y/z/", "//x///y/z//"}) {
        QTest::newRow(written) << QByteArray(written);
    }
}

void PluginRegistryTest::slashes()
{
    QFETCH(QByteArray, written);
    World::writeEntries(text("x.json"), declaring("X", {written}));
    const PluginRegistry registry;
    QCOMPARE(fileOf(registry, "x/y/z"), text("x.json"));
    QCOMPARE(paths(registry).size(), 3);
}

void PluginRegistryTest::emptyPathGoesToTheRoot()
{
    World::writeEntries(text("x.json"), declaring("X", {"", "/"}));
    PluginRegistry registry;
    QCOMPARE(paths(registry), QStringList());
    QCOMPARE(registry.getItem({})->data().value(text("path")).toString(), text("/"));
    registry.removeEntriesForFile(text("x.json"));
    QVERIFY(registry.getItem({}));
}

void PluginRegistryTest::fromFileIsTheRealName()
{
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "a", "from_file": "other.json"}]})");
    const PluginRegistry registry;
    QCOMPARE(fileOf(registry, "a"), text("x.json"));
}

void PluginRegistryTest::parsingIsLoggedAtInfoLevel()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    const MessageLog log;
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.info=true"));
    registry.addEntriesForFile(text("x.json"));
    QLoggingCategory::setFilterRules({});
    QCOMPARE(log.take(),
             QStringList{text("info org.orvantaos.settings.framework: "
                              "void PluginRegistry::addEntriesForFile(const QString&) parsing \"x.json\"")});
}

void PluginRegistryTest::groups_data()
{
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<bool>("loads");
    QTest::addColumn<QString>("message");

    const QByteArray own = "\"" + ownGroup() + "\"";
    const QByteArray foreign = "\"" + foreignGroup() + "\"";
    const QString notIn = text("debug org.orvantaos.settings.framework: %1 does not belong to group %2");
    const QString disabled = text("debug org.orvantaos.settings.framework: %1 disabled for belonging to group %2");
    const auto logged = [](const QString &message, const QByteArray &group) {
        return message.arg(geteuid()).arg(QString::fromLatin1(group));
    };
    QTest::newRow("required, in it") << "\"required_group\": " + own << true << QString();
    QTest::newRow("required, not in it") << "\"required_group\": " + foreign << false << logged(notIn, foreign);
    QTest::newRow("required, unknown") << QByteArray("\"required_group\": \"no-such-group\"") << false
                                       << logged(notIn, "\"no-such-group\"");
    QTest::newRow("disabled, in it") << "\"disabled_group\": " + own << false << logged(disabled, own);
    QTest::newRow("disabled, not in it") << "\"disabled_group\": " + foreign << true << QString();
    QTest::newRow("required and disabled, in both")
        << "\"required_group\": " + own + ", \"disabled_group\": " + own << false << logged(disabled, own);
    QTest::newRow("required and disabled, in neither")
        << "\"required_group\": " + foreign + ", \"disabled_group\": " + foreign << false
        << logged(notIn, foreign);
    QTest::newRow("no string") << QByteArray("\"required_group\": [1]") << true << QString();
}

void PluginRegistryTest::groups()
{
    QFETCH(QByteArray, rules);
    QFETCH(bool, loads);
    QFETCH(QString, message);
    World::writeEntries(text("x.json"), "{" + rules + ", \"entries\": [{\"path\": \"x\"}]}");
    const MessageLog log;
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.debug=true"));
    const PluginRegistry registry;
    QLoggingCategory::setFilterRules({});
    QCOMPARE(log.take(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(paths(registry), loads ? path("x") : QStringList());
}

void PluginRegistryTest::removalKeepsWhatHasChildren()
{
    World::writeEntries(text("1.json"), declaring("One", {"a/b"}));
    World::writeEntries(text("2.json"), declaring("Two", {"a/b/c"}));
    PluginRegistry registry;
    registry.removeEntriesForFile(text("1.json"));
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b"), text("a/b/c")}));
    QCOMPARE(registry.getItem(path("a/b"))->title(), text("One"));
    QCOMPARE(fileOf(registry, "a/b"), text("1.json"));
    registry.removeEntriesForFile(text("2.json"));
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::removalInTheOtherOrder()
{
    World::writeEntries(text("1.json"), declaring("One", {"a/b"}));
    World::writeEntries(text("2.json"), declaring("Two", {"a/b/c"}));
    PluginRegistry registry;
    registry.removeEntriesForFile(text("2.json"));
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b")}));
    registry.removeEntriesForFile(text("1.json"));
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::removalTakesEmptyUndeclaredNodes()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    registry.getItem({})->insertItem(path("old/empty"), {});
    registry.getItem({})->insertItem(path("old/null"), {{text("from_file"), QVariant::fromValue(nullptr)}});
    registry.getItem({})->insertItem(path("kept/child"), {{text("from_file"), text("other.json")}});
    registry.removeEntriesForFile(text("unrelated.json"));
    QCOMPARE(paths(registry), (QStringList{text("kept"), text("kept/child"), text("x")}));
}

void PluginRegistryTest::removalAndAdditionAreSilent()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    registry.removeEntriesForFile(text("x.json"));
    registry.addEntriesForFile(text("x.json"));
    registry.removeEntriesForFile(text("unknown.json"));
    QCOMPARE(paths(registry), path("x"));
    QCOMPARE(changes.count(), 0);
}

// Random files over few paths, loaded and unloaded at random, against a plain tree that is walked as a whole.
void PluginRegistryTest::removalMatchesReference()
{
    QRandomGenerator random(11);
    const int fileCount = 12;
    QVector<QList<QStringList>> declared(fileCount);
    const auto nameOf = [](int file) { return QString::number(file) + text(".json"); };
    for (int file = 0; file < fileCount; ++file) {
        QList<QByteArray> joined;
        for (int i = 0; i < 5; ++i) {
            QStringList names;
            for (int length = random.bounded(1, 5); length > 0; --length) {
                names.append(QString::number(random.bounded(3)));
            }
            declared[file].append(names);
            joined.append(names.join(QLatin1Char('/')).toLatin1());
        }
        World::writeEntries(nameOf(file), declaring("x", joined));
    }
    PluginRegistry registry;
    TreeItem reference({}, {});
    QSet<QString> loaded;
    const auto load = [&](int file) {
        loaded.insert(nameOf(file));
        for (const QStringList &names : qAsConst(declared[file])) {
            reference.insertItem(names, {{text("path"), names.join(QLatin1Char('/'))},
                                         {text("title"), text("x")},
                                         {text("from_file"), nameOf(file)}});
        }
    };
    // In the order in which a directory lists them
    QStringList listed = QDir(Constants::EntriesDirectory).entryList(QDir::Files);
    for (const QString &name : qAsConst(listed)) {
        load(name.section(QLatin1Char('.'), 0, 0).toInt());
    }
    for (int step = 0; step < 1000; ++step) {
        const int file = random.bounded(fileCount);
        if (random.bounded(2)) {
            registry.addEntriesForFile(nameOf(file));
            load(file);
        } else {
            registry.removeEntriesForFile(nameOf(file));
            loaded.remove(nameOf(file));
            reference.removeItems(
                [&](const TreeItem *item) { return item->count() == 0 && !loaded.contains(item->fromFile()); });
        }
        const QList<TreeItem *> expected = reference.getSubitems(TreeItem::orderLessThan, -1);
        const QList<TreeItem *> items = registry.getItem({})->getSubitems(TreeItem::orderLessThan, -1);
        QCOMPARE(items.size(), expected.size());
        for (int i = 0; i < items.size(); ++i) {
            QCOMPARE(items.at(i)->location(), expected.at(i)->location());
            QCOMPARE(items.at(i)->data(), expected.at(i)->data());
        }
        QCOMPARE(World::brokenInvariants(registry.getItem({})), QStringList());
    }
}

void PluginRegistryTest::scansOnceAfterTwoSeconds()
{
    const PluginRegistry registry;
    const auto *delay = registry.findChild<QTimer *>();
    QCOMPARE(delay->interval(), 2000);
    QVERIFY(delay->isSingleShot());
}

void PluginRegistryTest::burstIsOneBatch()
{
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    QElapsedTimer sinceLast;
    for (const char *name : {"a", "b", "c"}) {
        World::writeEntries(text(name) + text(".json"), declaring(name, {name}));
        sinceLast.start();
    }
    QVERIFY(changes.wait(10000));
    QVERIFY2(sinceLast.elapsed() >= 1900, qPrintable(QString::number(sinceLast.elapsed())));
    QCOMPARE(paths(registry), path("a/b/c"));
    QCOMPARE(changes.count(), 1);
}

void PluginRegistryTest::changeRestartsTheDelay()
{
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    QElapsedTimer sinceSecond;
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    QTimer::singleShot(1500, this, [&] {
        World::writeEntries(text("b.json"), declaring("B", {"b"}));
        sinceSecond.start();
    });
    QVERIFY(changes.wait(10000));
    QVERIFY(sinceSecond.isValid());
    QVERIFY2(sinceSecond.elapsed() >= 1900, qPrintable(QString::number(sinceSecond.elapsed())));
    QCOMPARE(paths(registry), path("a/b"));
    QCOMPARE(changes.count(), 1);
}

void PluginRegistryTest::fileVanishes()
{
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    World::writeEntries(text("b.json"), declaring("B", {"b"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::removeEntries(text("a.json"));
    World::rescan(&registry);
    QCOMPARE(paths(registry), path("b"));
    QCOMPARE(changes.count(), 1);
}

void PluginRegistryTest::fileIsRenamed()
{
    World::writeEntries(text("a.json"), declaring("A", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    QVERIFY(QFile::rename(entriesPath("a.json"), entriesPath("b.json")));
    World::rescan(&registry);
    QCOMPARE(fileOf(registry, "x"), text("b.json"));
    QCOMPARE(changes.count(), 1);
}

void PluginRegistryTest::fileIsRenamedToFake()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QVERIFY(QFile::rename(entriesPath("x.json"), entriesPath("fakex.json")));
    World::rescan(&registry);
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::fileIsRewritten()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::writeEntries(text("x.json"), declaring("Y", {"y"}));
    World::rescan(&registry);
    QCOMPARE(paths(registry), path("x"));
    QCOMPARE(changes.count(), 0);
    // It counts once its name has been away.
    World::removeEntries(text("x.json"));
    World::rescan(&registry);
    World::writeEntries(text("x.json"), declaring("Y", {"y"}));
    World::rescan(&registry);
    QCOMPARE(paths(registry), path("y"));
    QCOMPARE(changes.count(), 2);
}

void PluginRegistryTest::refusedFileIsNotRetried()
{
    World::writeEntries(text("x.json"), "broken");
    const MessageLog log;
    PluginRegistry registry;
    QCOMPARE(log.take().size(), 1);
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    World::writeEntries(text("another.json"), "broken");
    World::rescan(&registry);
    QCOMPARE(changes.count(), 1); // a file came, whatever is in it
    QCOMPARE(log.take().size(), 1);
    World::rescan(&registry);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::unchangedDirectoryIsSilent()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::writeEntries(text("readme.txt"), "not a registration file");
    World::rescan(&registry);
    QCOMPARE(changes.count(), 0);
}

void PluginRegistryTest::nodesDieBeforeContentChanged()
{
    World::writeEntries(text("a.json"), declaring("A", {"a/b", "a"}));
    PluginRegistry registry;
    QStringList events;
    for (const char *joined : {"a", "a/b"}) {
        connect(registry.getItem(path(joined)), &QObject::destroyed, this, [&, joined] {
            events.append(text(joined));
            QCOMPARE(registry.getItem(path(joined)), nullptr);
        });
    }
    connect(&registry, &PluginRegistry::contentChanged, this, [&] { events.append(text("contentChanged")); });
    World::removeEntries(text("a.json"));
    World::rescan(&registry);
    QCOMPARE(events, (QStringList{text("a/b"), text("a"), text("contentChanged")}));
}

void PluginRegistryTest::missingDirectory()
{
    QVERIFY(QDir(Constants::EntriesDirectory).removeRecursively());
    const MessageLog log;
    PluginRegistry registry;
    World::rescan(&registry);
    QCOMPARE(paths(registry), QStringList());
    QCOMPARE(log.take(), QStringList());
}

void PluginRegistryTest::treeIsDumpedAtInfoLevel()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    const MessageLog log;
    World::rescan(&registry);
    QCOMPARE(log.take(), QStringList());
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.info=true"));
    World::rescan(&registry);
    QLoggingCategory::setFilterRules({});
    const QStringList dump = log.take();
    QCOMPARE(dump.size(), 1);
    QVERIFY(dump.constFirst().contains(text("0 key: \"x\" data: ")));
}

void PluginRegistryTest::treeIsDumpedAfterContentChanged()
{
    PluginRegistry registry;
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    const MessageLog log;
    QStringList before;
    connect(&registry, &PluginRegistry::contentChanged, this, [&] { before = log.take(); });
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.info=true"));
    World::rescan(&registry);
    QLoggingCategory::setFilterRules({});
    const QString dump = text("0 key: \"x\" data: ");
    QCOMPARE(before.filter(dump).size(), 0);
    QCOMPARE(before.filter(text("parsing")).size(), 1);
    QCOMPARE(log.take().filter(dump).size(), 1);
}

void PluginRegistryTest::maskHidesAndUnmaskRestores()
{
    World::writeEntries(text("x.json"), declaring("X", {"a/b", "c"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("a/b")});
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), path("c"));
    World::setMasked({});
    QTRY_COMPARE(changes.count(), 2);
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b"), text("c")}));
    QCOMPARE(registry.getItem(path("a/b"))->title(), text("X"));
}

void PluginRegistryTest::maskFromAnotherProcess()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    waitForWrites();
    QCOMPARE(QProcess::execute(text("dconf"), {text("write"), Constants::MaskedSettingsKey, text("['x']")}), 0);
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::maskNeedsTheExactSpelling()
{
    World::writeEntries(text("1.json"), declaring("One", {"/a/b"}));
    World::writeEntries(text("2.json"), declaring("Two", {"c//d"}));
    World::setMasked({text("a/b"), text("c//d"), text("A/B")});
    const PluginRegistry registry;
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b")}));
}

void PluginRegistryTest::maskLeavesEntriesBelow()
{
    World::writeEntries(text("1.json"), declaring("One", {"a/b"}));
    World::writeEntries(text("2.json"), declaring("Two", {"a/b/c"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("a/b")});
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b"), text("a/b/c")}));
    QVERIFY(registry.getItem(path("a/b"))->data().isEmpty());
    QCOMPARE(registry.getItem(path("a/b"))->title(), text("!!b"));
    World::setMasked({});
    QTRY_COMPARE(changes.count(), 2);
    QCOMPARE(registry.getItem(path("a/b"))->title(), text("One"));
    // Masked again, nothing keeps the node once the entries below it go.
    World::setMasked({text("a/b")});
    QTRY_COMPARE(changes.count(), 3);
    registry.removeEntriesForFile(text("2.json"));
    QCOMPARE(paths(registry), QStringList());
}

void PluginRegistryTest::maskLeavesOtherSpellingAlone()
{
    World::writeEntries(text("1.json"),
                        R"({"entries": [{"path": "a", "title": "Masked"}, {"path": "/a", "title": "Shown"}]})");
    World::writeEntries(text("2.json"), declaring("Two", {"a/b"}));
    PluginRegistry registry;
    World::setMasked({text("a")});
    registry.addEntriesForFile(text("1.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Shown"));
    // The masked entry comes last now, after the other one stands there.
    World::writeEntries(text("1.json"),
                        R"({"entries": [{"path": "/a", "title": "Shown"}, {"path": "a", "title": "Masked"}]})");
    registry.addEntriesForFile(text("1.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Shown"));
}

void PluginRegistryTest::maskLeavesOtherFileAlone()
{
    World::writeEntries(text("1.json"), declaring("One", {"a"}));
    World::writeEntries(text("2.json"), declaring("Two", {"a"}));
    World::writeEntries(text("3.json"), declaring("Three", {"a/b"}));
    PluginRegistry registry;
    World::removeEntries(text("2.json"));
    World::rescan(&registry); // the node stays with its data, for the entry below it
    const MessageLog log;
    World::setMasked({text("a")});
    QCOMPARE(log.take(), QStringList{settingsWarning(Messages::CannotReadEntries, text("2.json"))});
    registry.addEntriesForFile(text("1.json"));
    QCOMPARE(fileOf(registry, "a"), text("2.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Two"));
}

void PluginRegistryTest::maskOfSeveralEntriesIsOneBatch()
{
    World::writeEntries(text("1.json"), declaring("One", {"a", "b", "c"}));
    World::writeEntries(text("2.json"), declaring("Two", {"d", "e"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("a"), text("b"), text("d"), text("nowhere")});
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), path("c/e"));
    World::setMasked({text("b"), text("c")});
    QTRY_COMPARE(changes.count(), 2);
    QCOMPARE(paths(registry), path("a/d/e"));
}

void PluginRegistryTest::maskOfUnknownEntryWaits()
{
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("x")});
    World::writeEntries(text("x.json"), declaring("X", {"x", "y"}));
    World::rescan(&registry);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), path("y"));
}

void PluginRegistryTest::maskWithoutEffectIsSilent()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    World::setMasked({text("x")});
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("x"), text("nowhere")});
    World::setMasked({text("elsewhere"), text("x")});
    // A change with effect comes after them, so they have been heard.
    World::setMasked({});
    QTRY_COMPARE(paths(registry), path("x"));
    QCOMPARE(changes.count(), 1);
}

void PluginRegistryTest::maskOfUndeclaredNode()
{
    World::writeEntries(text("x.json"), declaring("X", {"a/b"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    const MessageLog log;
    World::setMasked({text("a")});
    QTRY_COMPARE(changes.count(), 1);
    // Nobody declared the node, so there is no file to load again.
    QCOMPARE(log.take(), QStringList{settingsWarning("Can't read entries file", QString())});
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b")}));
}

void PluginRegistryTest::blacklistedPathIsMaskedAtStartOnly()
{
    World::writeBlacklist(R"(["x"])");
    World::writeEntries(text("x.json"), declaring("X", {"x", "y"}));
    World::setMasked({text("x")});
    {
        const PluginRegistry registry;
        QCOMPARE(paths(registry), path("y"));
    }
    World::setMasked({});
    PluginRegistry registry;
    QCOMPARE(paths(registry), path("x/y"));
    World::setMasked({text("x")});
    World::setMasked({text("x"), text("y")});
    QTRY_COMPARE(paths(registry), path("x"));
}

void PluginRegistryTest::maskedEntryOfVanishedFileIsForgotten()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    World::writeEntries(text("y.json"), declaring("Y", {"y"}));
    World::setMasked({text("x")});
    PluginRegistry registry;
    World::removeEntries(text("x.json"));
    World::rescan(&registry);
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    const MessageLog log;
    World::setMasked({});
    World::setMasked({text("y")});
    QTRY_COMPARE(paths(registry), QStringList());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(log.take(), QStringList());
}

void PluginRegistryTest::maskOfWrongType()
{
    World::writeEntries(text("x.json"), declaring("X", {"x", "7"}));
    MGConfItem key(Constants::MaskedSettingsKey);
    for (const QVariant &value : {QVariant(7), QVariant(QVariantMap{{text("x"), text("x")}}), QVariant(true)}) {
        key.set(value);
        const PluginRegistry registry;
        QCOMPARE(paths(registry), path("7/x"));
    }
    key.set(text("x"));
    const PluginRegistry registry;
    QCOMPARE(paths(registry), path("7")); // a string is a list of one
}

void PluginRegistryTest::hostileFiles_data()
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

void PluginRegistryTest::hostileFiles()
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

void PluginRegistryTest::manyEntriesInOneFile()
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

void PluginRegistryTest::longCatalogName()
{
    World::writeEntries(text("a.json"), R"({"translation_catalog": ")" + QByteArray(1 << 20, '_')
                                            + R"(", "entries": [{"path": "a"}]})");
    World::writeEntries(text("b.json"), declaring("B", {"b"}));
    QElapsedTimer timer;
    timer.start();
    const PluginRegistry registry;
    QCOMPARE(paths(registry), path("a/b"));
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
}

void PluginRegistryTest::manyFilesMaskedAtOnce()
{
    const auto work = [](int files) {
        World::reset();
        QStringList masked;
        for (int i = 0; i < files; ++i) {
            const QByteArray name = QByteArray::number(i);
            World::writeEntries(QString::fromLatin1(name) + text(".json"), declaring(name, {name}));
            masked.append(QString::fromLatin1(name));
        }
        PluginRegistry registry;
        QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
        CpuTimer timer;
        timer.start();
        World::setMasked(masked);
        const bool hidden = QTest::qWaitFor([&] { return paths(registry).isEmpty(); }, 30000);
        World::setMasked({});
        const bool shown = QTest::qWaitFor([&] { return paths(registry).size() == files; }, 30000);
        return hidden && shown && changes.count() == 2 ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(work, 800));
}

void PluginRegistryTest::manyVanishedFilesInOnePass()
{
    // All files hang below one chain that is kept up for each of them; a pass for each file would be quadratic.
    const auto work = [](int files) {
        World::reset();
        for (int i = 0; i < files; ++i) {
            const QByteArray name = QByteArray::number(i);
            World::writeEntries(QString::fromLatin1(name) + text(".json"), declaring(name, {"a/b/" + name}));
        }
        PluginRegistry registry;
        QDir(Constants::EntriesDirectory).removeRecursively();
        QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
        CpuTimer timer;
        timer.start();
        World::rescan(&registry);
        const qint64 elapsed = timer.nsecsElapsed();
        return changes.count() == 1 && paths(registry).isEmpty() ? elapsed : -1;
    };
    QVERIFY(Growth::isLinear(work, 500));
}

void PluginRegistryTest::instanceIsOne()
{
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    PluginRegistry *registry = PluginRegistry::instance();
    QCOMPARE(PluginRegistry::instance(), registry);
    QCOMPARE(registry->parent(), nullptr);
    QCOMPARE(paths(*registry), path("a"));
}

QTEST_GUILESS_MAIN(PluginRegistryTest)
#include "tst_pluginregistry.moc"
