// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"

#include "common/constants.h"
#include "common/messages.h"
#include "messagelog.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>
#include <orvantaaccesscontrol.h>

#include <QDir>
#include <QLoggingCategory>
#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace
{
QString fileOf(const PluginRegistry &registry, const char *joined)
{
    const TreeItem *item = registry.getItem(path(joined));
    return item ? item->fromFile() : text("no node");
}

QByteArray ownGroup()
{
    return getgrgid(getegid())->gr_name;
}

/// Returns a group of the system to which the user of this process does not belong.
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
    void laterFileWins();
    void laterEntryWins();
    void listingOrderIgnoresCase();
    void intermediateNodes();
    void slashes_data();
    void slashes();
    void emptyPathIsTheRoot();
    void fromFileIsTheRealName();
    void parsingIsLoggedAtInfoLevel();
    void groups_data();
    void groups();

    void removalKeepsWhatHasChildren();
    void removalInTheOtherOrder();
    void removalRemovesEmptyUndeclaredNodes();
    void removalAndAdditionAreSilent();
    void removalMatchesReference();

    void instanceIsOne(); // last, because the instance is never deleted
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

void PluginRegistryTest::laterFileWins()
{
    World::writeEntries(text("1.json"), R"({"entries": [{"path": "a", "title": "One", "icon": "one"}]})");
    World::writeEntries(text("2.json"), R"({"entries": [{"path": "a", "title": "Two"}]})");
    PluginRegistry registry;
    QCOMPARE(fileOf(registry, "a"), text("2.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Two"));
    QCOMPARE(registry.getItem(path("a"))->icon(), QString());
    // A replaced entry does not return.
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

void PluginRegistryTest::emptyPathIsTheRoot()
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

void PluginRegistryTest::removalRemovesEmptyUndeclaredNodes()
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

// Loads and unloads random files with few paths, and compares the tree with a plain one.
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
        for (const QStringList &names : std::as_const(declared[file])) {
            reference.insertItem(names, {{text("path"), names.join(QLatin1Char('/'))},
                                         {text("title"), text("x")},
                                         {text("from_file"), nameOf(file)}});
        }
    };
    // In the order in which a directory lists them
    QStringList listed = QDir(Constants::EntriesDirectory).entryList(QDir::Files);
    for (const QString &name : std::as_const(listed)) {
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
