// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "growth.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "search/searchindex.h"
#include "search/settingssearch.h"
#include "text.h"
#include "world.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <functional>

/// Searches entries of untrusted files. Limits of time are generous: without its limit, each of these takes much longer.
class SearchLimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void onlyTheBeginningOfTextsIsIndexed_data();
    void onlyTheBeginningOfTextsIsIndexed();
    void readsALargeFileInSlices();
    void largeFileGoesWhileItIsRead();
    void typesThatHaveNoNumber();
    void typesThatAreGoneHaveNoNumber();
    void highlightsLongTexts_data();
    void highlightsLongTexts();
};

namespace
{
constexpr qint64 MaxTime = 5'000'000'000; // ns, with the sanitizers, too
constexpr int MaxForms = 2000; ///< of the words of an entry
constexpr int Many = 64;
constexpr int ManyTypes = 70000;
constexpr int Entries = 30000; ///< of a large file

TreeItem *root()
{
    return PluginRegistry::instance()->getItem({});
}

void install(const QJsonArray &entries)
{
    World::writeEntries(text("x.json"), QJsonDocument(QJsonObject{{text("entries"), entries}}).toJson());
    World::rescan(PluginRegistry::instance());
}

QStringList distinct(int count, const std::function<QString(int number)> &word)
{
    QStringList words;
    for (int i = 0; i < count; ++i) {
        words.append(word(i));
    }
    return words;
}

QString numbered(int number)
{
    return text("word") + QString::number(number);
}

QJsonArray manyEntries()
{
    QJsonArray entries;
    for (int i = 0; i < Entries; ++i) {
        entries.append(QJsonObject{{text("path"), text("x/") + QString::number(i)},
                                   {text("title"), numbered(i)},
                                   {text("description"), text("one of many words of its file")}});
    }
    return entries;
}
}

void SearchLimitsTest::init()
{
    World::reset();
    World::rescan(PluginRegistry::instance());
}

void SearchLimitsTest::onlyTheBeginningOfTextsIsIndexed_data()
{
    constexpr int Words = 60000;
    constexpr int Ideographs = 20000;
    QTest::addColumn<QJsonObject>("texts");
    const QStringList words = distinct(Words, numbered);
    const QString spaced = words.join(QLatin1Char(' '));
    const auto ideograph = [](int i) { return QString(QChar(0x4E00 + i)); };
    const QStringList runs = distinct(Ideographs, ideograph);
    QTest::newRow("title") << QJsonObject{{text("title"), spaced}};
    QTest::newRow("description") << QJsonObject{{text("description"), spaced.repeated(20)}};
    QTest::newRow("joined words") << QJsonObject{{text("description"), words.join(QLatin1Char('-'))}};
    QTest::newRow("keyword") << QJsonObject{{text("keywords"), QJsonArray{spaced}}};
    QTest::newRow("keywords") << QJsonObject{{text("keywords"), QJsonArray::fromStringList(words)}};
    QTest::newRow("ideographs") << QJsonObject{{text("keywords"), QJsonArray{runs.join(QString())}}};
    QTest::newRow("keywords of an ideograph") << QJsonObject{{text("keywords"), QJsonArray::fromStringList(runs)}};
}

void SearchLimitsTest::onlyTheBeginningOfTextsIsIndexed()
{
    QFETCH(QJsonObject, texts);
    texts.insert(text("path"), text("x"));
    install({texts, QJsonObject{{text("path"), text("y")}, {text("title"), text("Neighbour")}}});
    CpuTimer time;
    time.start();
    SearchIndex index(root());
    index.finish();
    QVERIFY2(time.nsecsElapsed() < MaxTime, qPrintable(QString::number(time.nsecsElapsed())));
    QVERIFY(index.vocabulary().size() > 1);
    QVERIFY(index.vocabulary().size() <= MaxForms + 1);
}

void SearchLimitsTest::readsALargeFileInSlices()
{
    install(manyEntries());
    SettingsSearch search;
    search.find({text("word")});
    qint64 longest = 0;
    CpuTimer whole;
    whole.start();
    while (search.isBusy()) {
        CpuTimer slice;
        slice.start();
        QCoreApplication::processEvents();
        longest = std::max(longest, slice.nsecsElapsed());
    }
    QVERIFY2(longest < whole.nsecsElapsed() / 15, qPrintable(QString::number(longest)));
    QCOMPARE(search.find({numbered(Entries - 1)}).size(), 1);
}

void SearchLimitsTest::largeFileGoesWhileItIsRead()
{
    SettingsSearch search;
    const int slices[] = {0, 1, 5}; // while it is opened, parsed and read
    for (const int before : slices) {
        install(manyEntries());
        search.find({numbered(0)});
        for (int slice = 0; slice < before; ++slice) {
            QCoreApplication::processEvents();
        }
        QVERIFY(search.isBusy());
        World::removeEntries(text("x.json"));
        World::rescan(PluginRegistry::instance());
        search.finish();
        QCOMPARE(search.find({numbered(0)}).size(), 0);
    }
}

/// The type of a node takes 16 bits.
void SearchLimitsTest::typesThatHaveNoNumber()
{
    TypeNumbers types;
    for (int i = 0; i < ManyTypes; ++i) {
        types.acquire(numbered(i));
    }
    QCOMPARE(types.type(types.acquire(numbered(1))), numbered(1));
    QCOMPARE(types.acquire(numbered(ManyTypes - 1)), TypeNumbers::None);
    QCOMPARE(types.type(TypeNumbers::None), QString());
    QCOMPARE(types.numberOf(numbered(ManyTypes - 1)), -1);
}

void SearchLimitsTest::typesThatAreGoneHaveNoNumber()
{
    install({QJsonObject{{text("path"), text("x")}}});
    TreeItem *item = root()->lookup({text("x")});
    SearchNodes nodes;
    for (int i = 0; i < ManyTypes; ++i) {
        const quint16 number = nodes.insert(item, numbered(i)).type;
        QCOMPARE(nodes.types().type(number), numbered(i));
        QCOMPARE(nodes.types().numberOf(numbered(i)), int(number));
        nodes.remove(SearchNodes::positionOf(item));
    }
    QCOMPARE(nodes.types().numberOf(numbered(ManyTypes - 1)), -1);
}

void SearchLimitsTest::highlightsLongTexts_data()
{
    QTest::addColumn<QJsonObject>("texts");
    const QString marked = text("a") + QString(Many - 3, QChar(0x0301)) + text("-");
    QTest::newRow("marks") << QJsonObject{{text("title"), marked.repeated(Many)}};
    QTest::newRow("joined letters") << QJsonObject{{text("title"), text("a-b-").repeated(Many * Many)}};
}

void SearchLimitsTest::highlightsLongTexts()
{
    QFETCH(QJsonObject, texts);
    texts.insert(text("path"), text("x"));
    install({texts});
    SettingsSearch search;
    search.finish();
    const SearchResult result = search.resultAt(text("x"));
    QVERIFY(result.item);
    CpuTimer time;
    time.start();
    SettingsSearch::highlightsOf(result, text("a b c d aaaa bbbb cccc ") + QString(Many, QLatin1Char('a')));
    QVERIFY2(time.nsecsElapsed() < MaxTime, qPrintable(QString::number(time.nsecsElapsed())));
}

QTEST_GUILESS_MAIN(SearchLimitsTest)
#include "tst_searchlimits.moc"
