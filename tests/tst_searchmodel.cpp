// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "growth.h"
#include "modelreplica.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "search/searchmodel.h"
#include "search/searchnodes.h"
#include "text.h"
#include "world.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class SearchModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void reads();
    void announcesTheDifference();
    void readsNothingOutsideItsRows();
    void waitsForAllProperties();
    void followsTheEntries();
    void highlightsReadAFileOnce();
    void rowsOutliveTheirNodes();
    void releasesTheIndex_data();
    void releasesTheIndex();
    void handlersMayChangeTheText();
    void randomTexts();
};

namespace
{
constexpr auto Tester = QAbstractItemModelTester::FailureReportingMode::QtTest;

/// Waits until @p model has read all entries.
bool isReady(const SearchModel &model)
{
    return QTest::qWaitFor([&model] { return !model.isBusy(); });
}

QVariant read(const SearchModel &model, int row, SearchModel::Role role)
{
    return model.data(model.index(row, 0), role);
}

QStringList locationsOf(const SearchModel &model)
{
    QStringList locations;
    for (int row = 0; row < model.rowCount(); ++row) {
        locations.append(read(model, row, SearchModel::LocationRole).toString());
    }
    return locations;
}

QVariantList range(int start, int length)
{
    return {QVariantMap{{text("start"), start}, {text("length"), length}}};
}
}

void SearchModelTest::init()
{
    World::reset();
    World::writeEntries(text("search.json"), R"({"entries": [
        {"path": "s/sound", "title": "Sound", "keywords": ["audio"]},
        {"path": "s/sound/volume", "type": "page", "title": "Volume"},
        {"path": "s/mouse", "type": "page", "title": "Mouse"},
        {"path": "s/south", "type": "page", "title": "South"},
        {"path": "s/soap", "type": "page", "title": "Soap"}]})");
    World::rescan(PluginRegistry::instance());
}

void SearchModelTest::reads()
{
    SearchModel model;
    const QSignalSpy busyChanged(&model, &SearchModel::busyChanged);
    model.setText(text("audio"));
    QVERIFY(model.isBusy());
    QVERIFY(isReady(model));
    QCOMPARE(busyChanged.size(), 2);
    QCOMPARE(model.count(), 1);
    QCOMPARE(read(model, 0, SearchModel::ObjectRole).value<QObject *>(),
             PluginRegistry::instance()->getItem({text("s"), text("sound")}));
    QCOMPARE(read(model, 0, SearchModel::TitleRole), QVariant(text("Sound")));
    QCOMPARE(read(model, 0, SearchModel::TitleRangesRole), QVariant(QVariantList()));
    QCOMPARE(read(model, 0, SearchModel::MatchedRole), QVariant(text("audio")));
    QCOMPARE(read(model, 0, SearchModel::MatchedRangesRole), QVariant(range(0, 5)));
    QCOMPARE(read(model, 0, SearchModel::KindRole), QVariant(text("section")));
    QVERIFY(read(model, 0, SearchModel::ScoreRole).toDouble() > 0);

    model.setText(text("sound vol"));
    QCOMPARE(locationsOf(model), QStringList{text("s/sound/volume")});
    QCOMPARE(read(model, 0, SearchModel::BreadcrumbRole), QVariant(QStringList{text("Sound")}));
    QCOMPARE(read(model, 0, SearchModel::TitleRangesRole), QVariant(range(0, 3)));
    model.setText(QString());
    QCOMPARE(model.count(), 0);
}

void SearchModelTest::announcesTheDifference()
{
    SearchModel model;
    const QAbstractItemModelTester tester(&model, Tester);
    const ModelReplica replica(&model, SearchModel::LocationRole);
    model.setText(text("so"));
    QVERIFY(isReady(model));
    QCOMPARE(model.count(), 3);
    const QSignalSpy resets(&model, &SearchModel::modelReset);
    const QSignalSpy removals(&model, &SearchModel::rowsRemoved);
    const QSignalSpy insertions(&model, &SearchModel::rowsInserted);
    const QSignalSpy counts(&model, &SearchModel::countChanged);
    model.setText(text("sou"));
    QCOMPARE(model.count(), 2);
    QCOMPARE(removals.size(), 1);
    QCOMPARE(counts.size(), 1);
    model.setText(text("so"));
    QCOMPARE(insertions.size(), 1);
    QCOMPARE(resets.size(), 0);
    QVERIFY(replica.isEqual());
}

void SearchModelTest::readsNothingOutsideItsRows()
{
    SearchModel model;
    model.setText(text("so"));
    QVERIFY(isReady(model));
    for (const int row : {-1, 3, 1000000}) {
        for (const int role : model.roleNames().keys()) {
            QVERIFY(!model.data(model.index(row, 0), role).isValid());
        }
    }
    QVERIFY(!model.data(model.index(0, 0), -1).isValid());
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
}

void SearchModelTest::waitsForAllProperties()
{
    SearchModel model;
    model.classBegin();
    model.setText(text("so"));
    QVERIFY(!model.isBusy());
    model.setTypes({text("page")});
    model.setPath({text("s")});
    model.setStrict(true);
    model.setLimit(1);
    model.componentComplete();
    QVERIFY(isReady(model));
    QCOMPARE(locationsOf(model), QStringList{text("s/soap")});
    model.setLimit(5);
    QCOMPARE(model.count(), 2);
    model.setStrict(true);
    model.setText(text("soapp"));
    QCOMPARE(model.count(), 0);
    model.setStrict(false);
    QCOMPARE(model.count(), 1);
}

void SearchModelTest::followsTheEntries()
{
    SearchModel model;
    model.setText(text("sou"));
    QVERIFY(isReady(model));
    const QStringList before = locationsOf(model);
    World::writeEntries(text("other.json"), R"({"entries": [{"path": "s/soup", "title": "Soup"}]})");
    World::rescan(PluginRegistry::instance());
    QCOMPARE(locationsOf(model), before); // until all is read
    QTRY_COMPARE(model.count(), 3);
    World::removeEntries(text("search.json"));
    World::rescan(PluginRegistry::instance());
    QTRY_COMPARE(locationsOf(model), QStringList{text("s/soup")});
}

void SearchModelTest::highlightsReadAFileOnce()
{
    QByteArrayList entries;
    for (int i = 0; i < 5000; ++i) {
        const QByteArray keyword = i < 50 ? "umbrella" : "other";
        entries.append("{\"path\": \"u/" + QByteArray::number(i) + "\", \"title\": \"Entry\", \"keywords\": [\""
                       + keyword + "\"]}");
    }
    World::writeEntries(text("large.json"), "{\"entries\": [" + entries.join(',') + "]}");
    World::rescan(PluginRegistry::instance());
    SearchModel model;
    model.setText(text("umbrella"));
    QVERIFY(isReady(model));
    QCOMPARE(model.count(), 50);
    CpuTimer time;
    time.start();
    QCOMPARE(read(model, 0, SearchModel::MatchedRole), QVariant(text("umbrella")));
    const qint64 first = time.nsecsElapsed();
    for (int row = 1; row < model.count(); ++row) {
        QCOMPARE(read(model, row, SearchModel::MatchedRangesRole), QVariant(range(0, 8)));
    }
    QVERIFY2(time.nsecsElapsed() < 6 * first, qPrintable(QString::number(time.nsecsElapsed())));
}

void SearchModelTest::rowsOutliveTheirNodes()
{
    SearchModel model;
    model.setText(text("volume"));
    QVERIFY(isReady(model));
    World::removeEntries(text("search.json"));
    World::rescan(PluginRegistry::instance());
    QCOMPARE(model.count(), 1);
    QCOMPARE(read(model, 0, SearchModel::ObjectRole).value<QObject *>(), nullptr);
    QCOMPARE(read(model, 0, SearchModel::TitleRole), QVariant(text("Volume")));
    QCOMPARE(read(model, 0, SearchModel::MatchedRole), QVariant(QString()));
    QTRY_COMPARE(model.count(), 0);
}

void SearchModelTest::releasesTheIndex_data()
{
    QTest::addColumn<bool>("isRead");
    QTest::newRow("all entries read") << true;
    QTest::newRow("while they are read") << false;
}

void SearchModelTest::releasesTheIndex()
{
    QFETCH(bool, isRead);
    SearchModel model;
    auto *const timer = model.findChild<QTimer *>();
    model.setText(text("sound"));
    QVERIFY(!timer->isActive());
    QVERIFY(!isRead || isReady(model));
    model.setText(QString());
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 60000);
    const QSignalSpy busyChanged(&model, &SearchModel::busyChanged);
    QVERIFY(QMetaObject::invokeMethod(timer, "timeout")); // a minute later
    QVERIFY(!model.isBusy());
    QCOMPARE(busyChanged.size(), isRead ? 0 : 1);
    QCOMPARE(SearchNodes::positionOf(PluginRegistry::instance()->getItem({text("s"), text("sound")})), -1);
    model.setText(text("sound"));
    QVERIFY(isReady(model));
    QCOMPARE(model.count(), 1);
}

void SearchModelTest::handlersMayChangeTheText()
{
    auto model = std::make_unique<SearchModel>();
    const QAbstractItemModelTester tester(model.get(), Tester);
    model->setText(text("so"));
    QVERIFY(isReady(*model));
    connect(model.get(), &SearchModel::rowsRemoved, this, [&model] { model->setText(text("mouse")); });
    model->setText(text("sou"));
    QCOMPARE(locationsOf(*model), QStringList{text("s/mouse")});

    connect(model.get(), &SearchModel::rowsInserted, this, [&model] { model.reset(); });
    model->setText(text("so"));
    QVERIFY(!model);
}

void SearchModelTest::randomTexts()
{
    SearchModel model;
    const QAbstractItemModelTester tester(&model, Tester);
    const ModelReplica replica(&model, SearchModel::LocationRole);
    QRandomGenerator random(3);
    const QString letters = text("soundmvape ");
    QString typed;
    for (int step = 0; step < 200; ++step) {
        if (random.bounded(3) == 0) {
            typed.chop(1);
        } else {
            typed.append(letters.at(random.bounded(letters.size())));
        }
        model.setText(typed.right(8));
        if (random.bounded(20) == 0) {
            World::writeEntries(
                QString::number(step) + text(".json"),
                declaring("Sound " + QByteArray::number(step), {"s/" + QByteArray::number(random.bounded(9))}));
            World::rescan(PluginRegistry::instance());
        }
        QCoreApplication::processEvents();
        QVERIFY(replica.isEqual());
    }
}

QTEST_GUILESS_MAIN(SearchModelTest)
#include "tst_searchmodel.moc"
