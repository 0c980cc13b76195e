// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "common/constants.h"
#include "entryfiles.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/treeitem.h"
#include "testsize.h"
#include "text.h"
#include "watchedentry.h"

#include <QCoreApplication>
#include <QDir>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <array>
#include <memory>
#include <vector>

namespace
{
const QString s_file = QStringLiteral("sound.json");
const QByteArray s_sound = R"({"path": "system_settings/sound", "title": "Sound"})";
const QByteArray s_volume
    = R"({"path": "system_settings/sound/volume", "type": "control", "title": "Volume", "title_short": "Vol.",
          "icon": "audio", "controlIcon": "audio-active", "params": {"source": "/usr/share/volume.qml"}})";

QVariantMap step(const char *title, const char *path)
{
    return {{text("title"), text(title)}, {text("path"), text(path)}};
}

}

using namespace EntryFiles;

class SettingsEntryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void hasTheValuesOfItsNode();
    void hasNoValuesWithoutANode_data();
    void hasNoValuesWithoutANode();
    void announcesWhatChanged_data();
    void announcesWhatChanged();
    void otherPathAnnouncesWhatDiffers();
    void outlivesItsFile();
    void outlivesAMask();
    void isSilentWhenOthersChange();
    void followsTheTitlesAbove();
    void vanishesInLinearTime();
    void countsChildren();
    void followsChangesOutsideABatch();
    void followsTheLanguage();
    void announcesTitlesThatWereNotRead();
    void handlerMayDeleteEntries();
    void handlerMaySetAnotherPath();
    void twoEntriesOfOnePath();

    void randomChanges();
};

void SettingsEntryTest::init()
{
    EntryFiles::reset();
}

void SettingsEntryTest::hasTheValuesOfItsNode()
{
    install(s_file, {s_sound, s_volume});
    SettingsEntry entry;
    entry.setPath(text("system_settings/sound/volume"));
    QCOMPARE(entry.exists(), true);
    QCOMPARE(entry.title(), text("Volume"));
    QCOMPARE(entry.shortTitle(), text("Vol."));
    QCOMPARE(entry.icon(), text("audio"));
    QCOMPARE(entry.controlIcon(), text("audio-active"));
    QCOMPARE(entry.type(), text("control"));
    const QVariantMap params{{text("source"), text("/usr/share/volume.qml")}};
    QCOMPARE(entry.params(), params);
    QCOMPARE(entry.data().value(text("params")), QVariant(params));
    QCOMPARE(entry.data().value(text("from_file")), QVariant(s_file));
    QCOMPARE(entry.file(), s_file);
    QCOMPARE(entry.childCount(), 0);
    QCOMPARE(entry.parentPath(), text("system_settings/sound"));
    const QVariantList breadcrumb{step("!!system_settings", "system_settings"),
                                  step("Sound", "system_settings/sound"),
                                  step("Volume", "system_settings/sound/volume")};
    QCOMPARE(entry.breadcrumb(), breadcrumb);
    QCOMPARE(entry.favorite(), false);
    entry.setPath(text("system_settings"));
    QCOMPARE(entry.childCount(), 1);
    QCOMPARE(entry.type(), text("section"));
    QCOMPARE(entry.parentPath(), QString());
    QCOMPARE(entry.file(), QString());
}

void SettingsEntryTest::hasNoValuesWithoutANode_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no path") << "";
    QTest::newRow("slashes") << "//";
    QTest::newRow("unknown") << "system_settings/none";
    QTest::newRow("below an unknown one") << "system_settings/none/below";
    QTest::newRow("below a leaf") << "system_settings/sound/volume/below";
}

void SettingsEntryTest::hasNoValuesWithoutANode()
{
    QFETCH(QString, path);
    install(s_file, {s_volume});
    SettingsEntry entry;
    entry.setPath(path);
    for (const char *name : {"exists", "title", "shortTitle", "icon", "controlIcon", "type", "params", "data",
                             "file", "breadcrumb", "childCount", "favorite"}) {
        const QVariant value = entry.property(name);
        QCOMPARE(value, QVariant(value.userType(), nullptr));
    }
}

void SettingsEntryTest::announcesWhatChanged_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QStringList>("changes");
    const auto replaced = [](const char *from, const char *to) { return QByteArray(s_volume).replace(from, to); };
    QTest::newRow("nothing") << s_volume << names("");
    QTest::newRow("title") << replaced("\"Volume\"", "\"Loudness\"") << names("breadcrumb data title");
    QTest::newRow("short title") << replaced("Vol.", "V") << names("data shortTitle");
    QTest::newRow("icon") << replaced("\"audio\"", "\"a\"") << names("data icon");
    QTest::newRow("control icon") << replaced("audio-active", "a") << names("controlIcon data");
    QTest::newRow("type") << replaced("control\"", "page\"") << names("data type");
    QTest::newRow("params") << replaced("volume.qml", "v.qml") << names("data params");
    QTest::newRow("another key") << replaced("\"type\"", "\"order\": 3, \"type\"") << names("data");
    QTest::newRow("gone") << s_sound
                          << names("breadcrumb controlIcon data exists file icon params shortTitle title type");
}

void SettingsEntryTest::announcesWhatChanged()
{
    QFETCH(QByteArray, version);
    QFETCH(QStringList, changes);
    install(s_file, {s_sound, s_volume});
    WatchedEntry entry("system_settings/sound/volume");
    reload(s_file, {s_sound, version});
    QCOMPARE(entry.takeChanges(), changes);
    QVERIFY(entry.isAsAnnounced());
    reload(s_file, {s_sound, s_volume});
    QCOMPARE(entry.takeChanges(), changes);
    QVERIFY(entry.isAsAnnounced());
}

void SettingsEntryTest::otherPathAnnouncesWhatDiffers()
{
    install(s_file, {s_sound, s_volume, R"({"path": "system_settings/sound/balance", "title": "Volume"})"});
    WatchedEntry entry("system_settings/sound/volume");
    entry.setPath(text("system_settings/sound/balance"));
    QCOMPARE(entry.takeChanges(), names("breadcrumb controlIcon data icon params path shortTitle type"));
    entry.setPath(text("/system_settings//sound/balance"));
    QCOMPARE(entry.takeChanges(), names("path"));
    entry.setPath(text("system_settings/sound"));
    QCOMPARE(entry.takeChanges(), names("breadcrumb childCount data parentPath path title"));
    entry.setPath(text("system_settings/sound"));
    QCOMPARE(entry.takeChanges(), QStringList());
    QVERIFY(entry.isAsAnnounced());
}

void SettingsEntryTest::outlivesItsFile()
{
    WatchedEntry entry("system_settings/sound/volume");
    for (int i = 0; i < 3; ++i) {
        install(s_file, {s_volume});
        QVERIFY(entry.exists());
        QCOMPARE(entry.title(), text("Volume"));
        uninstall(s_file);
        QVERIFY(!entry.exists());
        QCOMPARE(entry.title(), QString());
    }
    QVERIFY(entry.isAsAnnounced());
    QCOMPARE(entry.takeChanges().count(text("exists")), 6);
}

void SettingsEntryTest::outlivesAMask()
{
    install(s_file, {s_sound, s_volume});
    WatchedEntry entry("system_settings/sound/volume");
    WatchedEntry other("system_settings/sound");
    World::setMasked({text("system_settings/sound/volume")});
    QVERIFY(!entry.exists());
    QCOMPARE(other.takeChanges(), names("childCount"));
    World::setMasked({});
    QVERIFY(entry.exists());
    QCOMPARE(entry.title(), text("Volume"));
    QVERIFY(entry.isAsAnnounced());
    QCOMPARE(other.takeChanges(), names("childCount")); // its file was loaded again, with the same values
    // A node that others keep has no data.
    install(text("other.json"), {R"({"path": "system_settings/sound/volume/more"})"});
    World::setMasked({text("system_settings/sound/volume")});
    QVERIFY(entry.exists());
    QCOMPARE(entry.title(), text("!!volume"));
    QCOMPARE(entry.file(), QString());
    QVERIFY(entry.isAsAnnounced());
}

void SettingsEntryTest::isSilentWhenOthersChange()
{
    install(s_file, {s_sound, s_volume});
    WatchedEntry entry("system_settings/sound/volume");
    WatchedEntry missing("system_settings/network/wifi");
    install(text("a.json"), {R"({"path": "system_settings/sound/balance"})", R"({"path": "other"})"});
    install(text("b.json"), {R"({"path": "system_settings/network/bluetooth"})"});
    uninstall(text("a.json"));
    uninstall(text("b.json"));
    QCoreApplication::processEvents();
    QCOMPARE(entry.takeChanges(), QStringList());
    QCOMPARE(missing.takeChanges(), QStringList());
}

void SettingsEntryTest::followsTheTitlesAbove()
{
    install(s_file, {s_sound, s_volume});
    WatchedEntry entry("system_settings/sound/volume");
    install(text("top.json"), {R"({"path": "system_settings", "title": "Settings"})"});
    QCOMPARE(entry.takeChanges(), names("breadcrumb"));
    QCOMPARE(entry.breadcrumb().first().toMap(), step("Settings", "system_settings"));
    reload(text("top.json"), {R"({"path": "system_settings", "title": "Settings", "icon": "top"})"});
    QCOMPARE(entry.takeChanges(), QStringList());
    reload(s_file, {R"({"path": "system_settings/sound", "title": "Audio"})", s_volume});
    QCOMPARE(entry.takeChanges(), names("breadcrumb"));
    QVERIFY(entry.isAsAnnounced());
}

void SettingsEntryTest::vanishesInLinearTime()
{
    const auto vanish = [](int size) -> qint64 {
        const QByteArray path = "deep" + QByteArray("/a").repeated(size);
        install(text("deep.json"), {R"({"path": ")" + path + R"("})"});
        const WatchedEntry entry(path.constData());
        CpuTimer timer;
        timer.start();
        uninstall(text("deep.json"));
        return entry.isAsAnnounced() && !entry.exists() ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(vanish, 200));
}

void SettingsEntryTest::countsChildren()
{
    WatchedEntry entry("system_settings/sound");
    install(s_file, {s_volume});
    QCOMPARE(entry.childCount(), 1);
    entry.takeChanges();
    install(text("more.json"),
            {R"({"path": "system_settings/sound/a"})", R"({"path": "system_settings/sound/b/c"})"});
    QCOMPARE(entry.childCount(), 3);
    QCOMPARE(entry.takeChanges(), names("childCount"));
    uninstall(text("more.json"));
    QCOMPARE(entry.childCount(), 1);
    QCOMPARE(entry.takeChanges(), names("childCount"));
}

void SettingsEntryTest::followsChangesOutsideABatch()
{
    install(s_file, {s_volume});
    WatchedEntry entry("system_settings/sound/volume");
    registry()->removeEntriesForFile(s_file);
    QCOMPARE(entry.title(), text("Volume")); // it is not announced yet
    QVERIFY(entry.isAsAnnounced());
    QTRY_VERIFY(!entry.exists());
    registry()->addEntriesForFile(s_file);
    QTRY_VERIFY(entry.exists());
    TreeItem *node = registry()->getItem(path("system_settings/sound"));
    node->insertItem(path("volume"), {{text("title"), text("Loudness")}});
    QTRY_COMPARE(entry.title(), text("Loudness"));
    auto *replacement = new TreeItem(text("volume"), {{text("title"), text("Other")}});
    const std::unique_ptr<TreeItem> replaced(node->lookup(path("volume")));
    node->addChild(replacement);
    QTRY_COMPARE(entry.title(), text("Other"));
    QVERIFY(entry.isAsAnnounced());
}

void SettingsEntryTest::followsTheLanguage()
{
    install(s_file,
            {R"({"path": "sound", "title": "Sound", "translation_id": "test-both"})",
             R"({"path": "sound/volume", "translation_id": "test-locale", "translation_id_short": "test-both"})",
             R"({"path": "sound/balance", "title": "Balance"})"});
    WatchedEntry volume("sound/volume");
    WatchedEntry balance("sound/balance");
    Catalogs::install("sample-fi", "fi");
    QTranslator finnish;
    QVERIFY(finnish.load(Catalogs::path("fi")));
    QCoreApplication::installTranslator(&finnish);
    QTRY_COMPARE(volume.title(), text("Kieli"));
    QCOMPARE(volume.shortTitle(), text("Molemmat"));
    QCOMPARE(volume.takeChanges(), names("breadcrumb shortTitle title"));
    QCOMPARE(balance.takeChanges(), names("breadcrumb"));
    QCOMPARE(balance.breadcrumb().first().toMap(), step("Molemmat", "sound"));
    QTranslator empty;
    QCoreApplication::installTranslator(&empty);
    QCoreApplication::processEvents();
    QCOMPARE(volume.takeChanges(), QStringList());
    QVERIFY(volume.isAsAnnounced());
    QVERIFY(balance.isAsAnnounced());
}

void SettingsEntryTest::announcesTitlesThatWereNotRead()
{
    install(s_file, {R"({"path": "volume", "translation_id": "test-locale"})",
                     R"({"path": "balance", "title": "Balance"})"});
    SettingsEntry volume;
    volume.setPath(text("volume"));
    SettingsEntry balance;
    balance.setPath(text("balance"));
    const QSignalSpy volumeTitles(&volume, &SettingsEntry::titleChanged);
    const QSignalSpy balanceTitles(&balance, &SettingsEntry::titleChanged);
    Catalogs::install("sample-fi", "fi");
    QTranslator finnish;
    QVERIFY(finnish.load(Catalogs::path("fi")));
    QCoreApplication::installTranslator(&finnish);
    QTRY_COMPARE(volumeTitles.count(), 1);
    QCOMPARE(volume.title(), text("Kieli"));
    QCOMPARE(balanceTitles.count(), 0);
}

void SettingsEntryTest::handlerMayDeleteEntries()
{
    install(s_file, {s_volume});
    std::array<std::unique_ptr<SettingsEntry>, 3> entries;
    for (auto &entry : entries) {
        entry = std::make_unique<SettingsEntry>();
        entry->setPath(text("system_settings/sound/volume"));
        connect(entry.get(), &SettingsEntry::existsChanged, this, [&entries] {
            for (auto &other : entries) {
                other.reset();
            }
        });
    }
    uninstall(s_file);
    for (const auto &entry : entries) {
        QVERIFY(!entry);
    }
    install(s_file, {s_volume}); // notifies none of them
}

void SettingsEntryTest::handlerMaySetAnotherPath()
{
    install(s_file, {s_sound, s_volume});
    WatchedEntry entry("system_settings/sound/volume");
    connect(&entry, &SettingsEntry::existsChanged, &entry,
            [&entry] { entry.setPath(text("system_settings/sound")); });
    reload(s_file, {s_sound});
    QCOMPARE(entry.title(), text("Sound"));
    QVERIFY(entry.isAsAnnounced());
}

void SettingsEntryTest::twoEntriesOfOnePath()
{
    WatchedEntry first("system_settings/sound/volume");
    auto second = std::make_unique<WatchedEntry>("system_settings/sound/volume");
    install(s_file, {s_volume});
    QCOMPARE(first.takeChanges(), second->takeChanges());
    second.reset();
    uninstall(s_file);
    QVERIFY(first.isAsAnnounced());
    QVERIFY(!first.exists());
}

void SettingsEntryTest::randomChanges()
{
    const MessageLog log; // a mask reads files again that may be gone
    QRandomGenerator random(18);
    const auto randomPath = [&random] {
        QByteArray path = "p" + QByteArray::number(random.bounded(3));
        for (int depth = random.bounded(4); depth > 0; --depth) {
            path += "/p" + QByteArray::number(random.bounded(3));
        }
        return path;
    };
    std::vector<std::unique_ptr<WatchedEntry>> entries;
    for (int step = testSize(2000); step > 0; --step) {
        const QString file = QString::number(random.bounded(6)) + text(".json");
        switch (random.bounded(5)) {
        case 0:
            uninstall(file);
            break;
        case 1:
            World::setMasked({QString::fromLatin1(randomPath()), QString::fromLatin1(randomPath())});
            break;
        case 2:
            if (random.bounded(2) || entries.empty()) {
                entries.push_back(std::make_unique<WatchedEntry>(randomPath().constData()));
            } else {
                entries.erase(entries.begin() + random.bounded(int(entries.size())));
            }
            break;
        case 3:
            if (!entries.empty()) {
                entries[random.generate() % entries.size()]->setPath(QString::fromLatin1(randomPath()));
            }
            break;
        default:
            install(file, {R"({"path": ")" + randomPath() + R"(", "title": ")"
                               + QByteArray::number(random.bounded(3)) + "\"}",
                           R"({"path": ")" + randomPath() + "\"}"});
        }
        for (const auto &entry : entries) {
            const TreeItem *node = registry()->getItem(entry->path().split(QLatin1Char('/')));
            QVERIFY(entry->isAsAnnounced());
            QCOMPARE(entry->exists(), node != nullptr);
            QCOMPARE(entry->title(), node ? node->title() : QString());
            QCOMPARE(entry->data(), node ? node->data() : QVariantMap());
            QCOMPARE(entry->childCount(), node ? node->count() : 0);
            QCOMPARE(entry->breadcrumb().size(), node ? node->location().size() : 0);
        }
    }
}

QTEST_GUILESS_MAIN(SettingsEntryTest)
#include "tst_settingsentry.moc"
