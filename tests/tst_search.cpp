// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "growth.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "search/searchindex.h"
#include "search/settingssearch.h"
#include "text.h"
#include "world.h"

#include <QLocale>
#include <QSignalSpy>
#include <QTest>

class SearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void finds_data();
    void finds();
    void strictStopsAtAllWords_data();
    void strictStopsAtAllWords();
    void readsTheCatalogsOfTheFile();
    void splitsTranslatedKeywords();
    void restrictsTheResults();
    void describesAResult();
    void highlights_data();
    void highlights();
    void answersFromWhatItHasRead();
    void followsTheEntries();
    void sharesAnIndexAndDeletesIt();
    void searchesOnlyWholeTrees();
    void outlivesTheTree();
    void surprisingQueries_data();
    void surprisingQueries();
};

namespace
{
const char s_entries[] = R"({"entries": [
    {"path": "s/sound", "title": "Sound", "keywords": ["audio", "speakers"]},
    {"path": "s/sound/volume", "type": "page", "title": "Volume"},
    {"path": "s/sound/theme", "type": "page", "title": "Sound theme"},
    {"path": "s/wifi", "type": "page", "title": "Wi-Fi", "description": "Connects without a cable"},
    {"path": "s/bluetooth", "type": "page", "title": "Bluetooth"},
    {"path": "s/hidden", "type": "page", "title": "Hidden bluetooth", "searchable": false},
    {"path": "s/notifications", "type": "page", "title": "Notifications"},
    {"path": "s/screen", "type": "page", "title": "Screen brightness", "keywords": ["display"]},
    {"path": "s/polish", "type": "page", "title": "Łódź żółta"},
    {"path": "s/danish", "type": "page", "title": "Smørrebrød"},
    {"path": "s/german", "type": "page", "title": "Straße"},
    {"path": "s/plain", "type": "page", "title": "Muhle"},
    {"path": "s/marked", "type": "page", "title": "Mühle"},
    {"path": "s/soft", "type": "page", "title": "Bild\u00adschirm"},
    {"path": "s/chinese", "type": "page", "title": "蓝牙设置"},
    {"path": "s/japanese", "type": "page", "title": "画面の明るさ"},
    {"path": "s/thai", "type": "page", "title": "การตั้งค่าเสียง"},
    {"path": "s/korean", "type": "page", "title": "배경 화면"},
    {"path": "s/russian", "type": "page", "title": "Клавиатура"},
    {"path": "s/energy", "type": "page", "title": "Energy", "keywords": ["history", "fan"]},
    {"path": "s/recent", "type": "page", "title": "Recent documents", "keywords": ["clear history", "file history"]},
    {"path": "s/resent", "type": "page", "title": "Resent"},
    {"path": "s/untitled", "type": "page"}
]})";

TreeItem *root()
{
    return PluginRegistry::instance()->getItem({});
}

QStringList locationsOf(const QVector<SearchResult> &results)
{
    QStringList locations;
    for (const SearchResult &result : results) {
        locations.append(result.location);
    }
    return locations;
}

QStringList found(const SearchQuery &query)
{
    SettingsSearch search;
    search.finish();
    return locationsOf(search.find(query));
}

SearchQuery strictly(const QString &text)
{
    SearchQuery query{text};
    query.isStrict = true;
    return query;
}

void addQuery(const char *name, const char *query, const QStringList &locations)
{
    QTest::newRow(name) << QString::fromUtf8(query) << locations;
}
}

void SearchTest::init()
{
    World::reset();
    World::writeEntries(text("search.json"), s_entries);
    World::rescan(PluginRegistry::instance());
}

void SearchTest::finds_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("locations");
    addQuery("nothing", "", {});
    addQuery("only signs", " -- ? ", {});
    addQuery("only a stroke that lengthens words", "ـ", {});
    addQuery("equal, the shortest title first", "sound", {text("s/sound"), text("s/sound/theme")});
    addQuery("the start of a word", "blue", {text("s/bluetooth")});
    addQuery("inside a word", "tooth", {text("s/bluetooth")});
    addQuery("not inside with two letters", "th", {text("s/sound/theme")});
    addQuery("a keyword", "speakers", {text("s/sound")});
    addQuery("what is mentioned often first", "history", {text("s/recent"), text("s/energy")});
    addQuery("a description", "cable", {text("s/wifi")});
    addQuery("a title above", "sound volume", {text("s/sound/volume")});
    addQuery("joined words", "wifi", {text("s/wifi")});
    addQuery("words that are joined elsewhere", "wi fi", {text("s/wifi")});
    addQuery("joined words as they are", "wi-fi", {text("s/wifi")});
    addQuery("an entry that is no result", "hidden", {});
    addQuery("marks left out", "lodz zolta", {text("s/polish")});
    addQuery("ø", "smorrebrod", {text("s/danish")});
    addQuery("ß", "strasse", {text("s/german")});
    addQuery("as typed before without marks", "mühle", {text("s/marked"), text("s/plain")});
    addQuery("without marks as typed first", "muhle", {text("s/plain"), text("s/marked")});
    addQuery("a soft hyphen", "bildschirm", {text("s/soft")});
    addQuery("full width", "ｂｌｕｅ", {text("s/bluetooth")});
    addQuery("Chinese, inside", "设置", {text("s/chinese")});
    addQuery("Chinese, half of it", "无线蓝牙", {text("s/chinese")});
    addQuery("Japanese, inside", "明るさ", {text("s/japanese")});
    addQuery("Thai, inside", "เสียง", {text("s/thai")});
    addQuery("Korean, half of a syllable", "배겨", {text("s/korean")});
#ifdef VELKA_WITH_ICU
    addQuery("Latin letters", "klaviatura", {text("s/russian")});
    addQuery("pinyin", "lanya", {text("s/chinese")});
#endif
    addQuery("a letter replaced", "bluetoath", {text("s/bluetooth")});
    addQuery("a letter left out", "volme", {text("s/sound/volume")});
    addQuery("a letter added", "voluume", {text("s/sound/volume")});
    addQuery("two letters swapped", "vloume", {text("s/sound/volume")});
    addQuery("two edits of a long word", "notifcatons", {text("s/notifications")});
    addQuery("two edits of a long word to a short one", "diiplaay", {});
    addQuery("two edits of a short word", "vvlme", {});
    addQuery("a typo and a word above", "sonud volume", {text("s/sound/volume")});
    addQuery("the first letter wrong", "nluetooth", {text("s/bluetooth")});
    addQuery("the first letter of a short word wrong", "qifi", {});
    addQuery("a typo in three letters", "fle", {});
    addQuery("a typo in a word of three letters", "fann", {});
    addQuery("a typo in the start of a word", "bletoo", {text("s/bluetooth")});
    addQuery("a typo in a short start", "bleto", {});
    addQuery("one of three words", "lodz foo bar", {text("s/polish")});
    addQuery("most of the words", "bluetooth foobar", {text("s/bluetooth")});
    addQuery("one of many words, of which the others are nowhere", "bluetooth foo bar baz", {text("s/bluetooth")});
    addQuery("a word that is known is no typo", "documents resent", {text("s/recent"), text("s/resent")});
    addQuery("an inflected word", "displaying", {text("s/screen")});
    addQuery("the last word of a compound", "nightbrightness", {text("s/screen")});
    addQuery("the last word, with the same first letter", "boardbrightness", {text("s/screen")});
    addQuery("a word with a prefix", "rebrightness", {});
    addQuery("too little of a compound", "backgroundhistory", {});
    addQuery("unrelated", "rhubarb", {});
    addQuery("a name without a title", "untitled", {});
    addQuery("letters in order, but apart", "btth", {});
}

void SearchTest::finds()
{
    QFETCH(QString, query);
    QTEST(found({query}), "locations");
}

void SearchTest::strictStopsAtAllWords_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("locations");
    addQuery("inside a word", "tooth", {text("s/bluetooth")});
    addQuery("a typo", "bluetoath", {});
    addQuery("most of the words", "bluetooth foobar", {});
}

void SearchTest::strictStopsAtAllWords()
{
    QFETCH(QString, query);
    QTEST(found(strictly(query)), "locations");
}

void SearchTest::readsTheCatalogsOfTheFile()
{
    QLocale::setDefault(QLocale(text("fi_FI")));
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    World::writeEntries(text("translated.json"), R"({"translation_catalog": "sample", "entries": [
        {"path": "t/title", "title": "Plain", "translation_id": "test-both"},
        {"path": "t/keywords", "title": "Other", "keywords": ["unused"], "keywords_id": "test-locale"},
        {"path": "t/unknown", "title": "Fallback", "translation_id": "test-none", "keywords": ["used"],
         "keywords_id": "test-none"}]})");
    World::rescan(PluginRegistry::instance());
    QCOMPARE(found({text("molemmat")}), QStringList{text("t/title")});
    QCOMPARE(found({text("both")}), QStringList{text("t/title")});
    QCOMPARE(found({text("plain")}), QStringList());
    QCOMPARE(found({text("kieli")}), QStringList{text("t/keywords")});
    QCOMPARE(found({text("fallback used")}), QStringList{text("t/unknown")});
    SettingsSearch search;
    search.finish();
    QCOMPARE(search.resultAt(text("t/title")).title, text("Molemmat"));
}

void SearchTest::splitsTranslatedKeywords()
{
    QLocale::setDefault(QLocale(text("fi_FI")));
    Catalogs::install("extra-fi", "extra-fi");
    World::writeEntries(text("translated.json"), R"({"translation_catalog": "extra", "entries": [
        {"path": "t/keywords", "title": "Other", "keywords": ["unused"], "keywords_id": "test-keywords"}]})");
    World::rescan(PluginRegistry::instance());
    SettingsSearch search;
    search.finish();
    const SearchResult result = search.resultAt(text("t/keywords"));
    QCOMPARE(SettingsSearch::highlightsOf(result, text("hilj")).matched, text("hyvin hiljainen"));
    QCOMPARE(SettingsSearch::highlightsOf(result, text("kova")).matched, text("kova"));
}

void SearchTest::restrictsTheResults()
{
    SearchQuery query{text("sound")};
    query.types = QStringList{text("page")};
    QCOMPARE(found(query), QStringList{text("s/sound/theme")});
    query.types = QStringList{text("bool")};
    QCOMPARE(found(query), QStringList());

    query = {text("sound")};
    query.path = QStringList{text("s"), text("sound")};
    QCOMPARE(found(query), QStringList{text("s/sound/theme")});
    query.path = QStringList{text("missing")};
    QCOMPARE(found(query), QStringList());

    query = {text("sound")};
    query.limit = 1;
    QCOMPARE(found(query), QStringList{text("s/sound")});
    query.limit = 0;
    QCOMPARE(found(query), QStringList());

    query = {text("sound")};
    query.within = QStringList{text("s/sound/theme"), text("s/wifi"), text("missing")};
    QCOMPARE(found(query), QStringList{text("s/sound/theme")});
    query.within = QStringList();
    QCOMPARE(found(query), QStringList());
}

void SearchTest::describesAResult()
{
    SettingsSearch search;
    search.finish();
    const SearchResult result = search.find({text("volume")}).value(0);
    QCOMPARE(result.item, root()->lookup({text("s"), text("sound"), text("volume")}));
    QCOMPARE(result.location, text("s/sound/volume"));
    QCOMPARE(result.title, text("Volume"));
    QCOMPARE(result.breadcrumb, QStringList{text("Sound")});
    QCOMPARE(result.kind, text("page"));
    QVERIFY(result.score > 0 && result.score <= 1);

    QCOMPARE(search.resultAt(text("s/sound")).title, text("Sound"));
    QCOMPARE(search.resultAt(text("s/sound")).kind, text("section"));
    QCOMPARE(search.resultAt(text("s/untitled")).title, text("!!untitled"));
    QVERIFY(!search.resultAt(text("s/hidden")).item);
    QVERIFY(!search.resultAt(text("s")).item);
    QVERIFY(!search.resultAt(text("missing")).item);
}

void SearchTest::highlights_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("title"); // with brackets around the ranges
    QTest::addColumn<QString>("matched");
    QTest::newRow("the start") << text("s/sound/theme") << text("sou") << text("[Sou]nd theme") << QString();
    QTest::newRow("two words") << text("s/sound/theme") << text("theme sound") << text("[Sound] [theme]")
                               << QString();
    QTest::newRow("inside") << text("s/bluetooth") << text("tooth") << text("Blue[tooth]") << QString();
    QTest::newRow("a typo") << text("s/bluetooth") << text("bluetoath") << text("[Bluetooth]") << QString();
    QTest::newRow("letters that are more when folded")
        << text("s/german") << text("strass") << QString::fromUtf8("[Straß]e") << QString();
    QTest::newRow("joined words") << text("s/wifi") << text("wifi") << text("[Wi-Fi]") << QString();
    QTest::newRow("a keyword") << text("s/sound") << text("speak") << text("Sound") << text("[speak]ers");
    QTest::newRow("a description") << text("s/wifi") << text("cable") << text("Wi-Fi")
                                   << text("Connects without a [cable]");
    QTest::newRow("neither") << text("s/sound") << text("xyz") << text("Sound") << QString();
}

void SearchTest::highlights()
{
    QFETCH(QString, location);
    QFETCH(QString, query);
    SettingsSearch search;
    search.finish();
    const SearchResult result = search.resultAt(location);
    const auto marked = [](QString text, const QVector<TextRange> &ranges) {
        for (auto range = ranges.crbegin(); range != ranges.crend(); ++range) {
            text.insert(range->start + range->length, QLatin1Char(']')).insert(range->start, QLatin1Char('['));
        }
        return text;
    };
    const SearchHighlights highlights = SettingsSearch::highlightsOf(result, query);
    QTEST(marked(result.title, highlights.titleRanges), "title");
    QTEST(marked(highlights.matched, highlights.matchedRanges), "matched");
}

void SearchTest::answersFromWhatItHasRead()
{
    SettingsSearch search;
    QVERIFY(!search.isBusy());
    const QSignalSpy busyChanged(&search, &SettingsSearch::busyChanged);
    QCOMPARE(search.find({text("sound")}).size(), 0);
    QVERIFY(search.isBusy());
    QTRY_VERIFY(!search.isBusy());
    QCOMPARE(busyChanged.size(), 1);
    QCOMPARE(search.find({text("sound")}).size(), 2);
}

void SearchTest::followsTheEntries()
{
    SettingsSearch search;
    search.finish();
    const auto find = [&search](const char *words) {
        search.finish();
        return locationsOf(search.find({text(words)}));
    };
    World::writeEntries(text("other.json"), R"({"entries": [{"path": "s/mouse", "title": "Mouse"},
        {"path": "s/sound/balance", "title": "Balance"}, {"path": "s/wifi", "title": "Wireless"}]})");
    World::rescan(PluginRegistry::instance());
    QVERIFY(search.isBusy());
    QCOMPARE(find("mouse"), QStringList{text("s/mouse")});
    QCOMPARE(find("sound balance"), QStringList{text("s/sound/balance")});
    QCOMPARE(find("wireless"), QStringList{text("s/wifi")});
    QCOMPARE(find("cable"), QStringList());

    World::removeEntries(text("search.json"));
    World::rescan(PluginRegistry::instance());
    QCOMPARE(find("bluetooth"), QStringList());
    QCOMPARE(find("sound balance"), QStringList{text("s/sound/balance")}); // the node above stays
    World::removeEntries(text("other.json"));
    World::rescan(PluginRegistry::instance());
    QCOMPARE(find("mouse"), QStringList());
}

void SearchTest::sharesAnIndexAndDeletesIt()
{
    const TreeItem *item = root()->lookup({text("s"), text("sound")});
    auto first = std::make_unique<SettingsSearch>();
    first->finish();
    auto second = std::make_unique<SettingsSearch>();
    QCOMPARE(second->find({text("sound")}).size(), 2);
    first.reset();
    QCOMPARE(second->find({text("sound")}).size(), 2);
    QVERIFY(SearchNodes::positionOf(item) >= 0);
    second->release();
    QCOMPARE(SearchNodes::positionOf(item), -1);
    second->finish();
    QCOMPARE(second->find({text("sound")}).size(), 2);
}

void SearchTest::searchesOnlyWholeTrees()
{
    SettingsSearch whole;
    whole.finish();
    TreeItem alone(text("alone"), {});
    for (TreeItem *item : {root()->lookup({text("s"), text("sound")}), &alone}) {
        SettingsSearch search(item);
        QVERIFY(search.find({text("sound")}).isEmpty());
        search.finish();
        QVERIFY(!search.isBusy());
        QVERIFY(search.find({text("sound")}).isEmpty());
        QVERIFY(!search.resultAt(text("s/sound")).item);
    }
    QCOMPARE(whole.find({text("sound")}).size(), 2);
}

void SearchTest::outlivesTheTree()
{
    auto registry = std::make_unique<PluginRegistry>();
    SettingsSearch unused(registry->getItem({}));
    SettingsSearch reading(registry->getItem({}));
    QVERIFY(reading.find({text("sound")}).isEmpty());
    QVERIFY(reading.isBusy());
    const QSignalSpy busyChanged(&reading, &SettingsSearch::busyChanged);
    registry.reset();
    QVERIFY(!reading.isBusy());
    QTRY_COMPARE(busyChanged.size(), 1);
    for (SettingsSearch *search : {&reading, &unused}) {
        search->finish();
        QVERIFY(search->find({text("sound")}).isEmpty());
        QVERIFY(!search->resultAt(text("s/sound")).item);
    }
}

void SearchTest::surprisingQueries_data()
{
    QTest::addColumn<QString>("query");
    QTest::newRow("a megabyte in one word") << QString(1 << 20, QLatin1Char('s'));
    QTest::newRow("many words") << QString(text("sound ")).repeated(100000);
    QTest::newRow("many joints") << QString(text("s-")).repeated(100000);
    QTest::newRow("marks") << QString(1 << 20, QChar(0x0301));
    QTest::newRow("a letter with many marks") << text("s") + QString(1 << 20, QChar(0x0301));
    QTest::newRow("null characters") << QString(1000, QChar(0));
    QTest::newRow("half of characters") << QString(1000, QChar(0xD800));
    QTest::newRow("a letter that becomes many") << QString(10000, QChar(0xFDFA));
    QTest::newRow("signs of expressions") << text(R"(.*[a-z]+(sound|"%\')");
    QTest::newRow("ideographs") << QString(10000, QChar(0x84DD));
    QTest::newRow("invisible") << QString(10000, QChar(0x200B));
}

void SearchTest::surprisingQueries()
{
    QFETCH(QString, query);
    SettingsSearch search;
    search.finish();
    CpuTimer time;
    time.start();
    for (const SearchResult &result : search.find({query})) {
        SettingsSearch::highlightsOf(result, query);
    }
    QVERIFY2(time.nsecsElapsed() < 1'000'000'000, qPrintable(QString::number(time.nsecsElapsed())));
}

QTEST_GUILESS_MAIN(SearchTest)
#include "tst_search.moc"
