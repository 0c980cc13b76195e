// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "search/settingssearch.h"
#include "testsize.h"
#include "text.h"
#include "world.h"

#include <QRandomGenerator>
#include <QTest>

/// Random changes of the entries give the same results as a fresh index.
class SearchChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void afterReading();
    void betweenSlices();
};

namespace
{
constexpr int Names = 6;

TreeItem *root()
{
    return PluginRegistry::instance()->getItem({});
}

const QStringList &randomWords()
{
    static const QStringList s_words
        = text("sound volume mouse screen wifi blue tooth key board über straße 蓝牙 net").split(QLatin1Char(' '));
    return s_words;
}

/// Inserts, replaces or removes a node with one of @p names names in each level, of one of six files.
void change(QRandomGenerator *random, int names)
{
    const auto word = [random] { return randomWords().at(random->bounded(randomWords().size())); };
    const auto name = [random](int count) { return QString::number(random->bounded(count)); };
    const QStringList path{text("s"), name(names), name(names)};
    TreeItem *item = root()->lookup(path.mid(0, 2 + random->bounded(2)));
    if (item && random->bounded(3) == 0) {
        item->parentItem()->removeChild(item);
        return;
    }
    const QVariantMap data{{text("title"), QString(word() + QLatin1Char(' ') + word())},
                           {text("keywords"), QStringList{word()}},
                           {text("from_file"), QString(name(Names) + text(".json"))}};
    root()->insertItem(path, data);
}

using Answers = QVector<QPair<QString, double>>;

/// Returns the results of some queries when all is read.
Answers answersOf(SettingsSearch *search)
{
    search->finish();
    Answers answers;
    for (const QString &query : randomWords()) {
        const QVector<SearchResult> results = search->find({query + QLatin1Char(' ') + randomWords().at(0)});
        for (const SearchResult &result : results) {
            answers.append({result.location, result.score});
        }
    }
    return answers;
}
}

void SearchChangesTest::init()
{
    World::reset();
    World::rescan(PluginRegistry::instance());
}

void SearchChangesTest::afterReading()
{
    QRandomGenerator random(7);
    SettingsSearch search;
    for (int step = testSize(1000000); step > 0; --step) {
        change(&random, Names);
        if (random.bounded(64) == 0) {
            search.finish();
        }
        if (step % 5000 == 0) {
            const Answers followed = answersOf(&search);
            search.release();
            QCOMPARE(followed, answersOf(&search));
        }
    }
}

/// Files are large enough for several slices, and change between them.
void SearchChangesTest::betweenSlices()
{
    constexpr int ManyNames = 150;
    QRandomGenerator random(11);
    for (int i = 0; i < 15000; ++i) {
        change(&random, ManyNames);
    }
    SettingsSearch search;
    search.find({});
    int slices = 0;
    for (int step = testSize(2000); step > 0; --step) {
        slices += search.isBusy() ? 1 : 0;
        QCoreApplication::processEvents();
        if (random.bounded(2) == 0) {
            change(&random, ManyNames);
        }
        if (step % 20 == 0) {
            const Answers followed = answersOf(&search);
            search.release();
            QCOMPARE(followed, answersOf(&search));
        }
    }
    QVERIFY(slices > testSize(2000) / 10);
}

QTEST_GUILESS_MAIN(SearchChangesTest)
#include "tst_searchchanges.moc"
