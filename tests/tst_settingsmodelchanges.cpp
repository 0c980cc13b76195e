// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/settingsmodel.h"

#include "common/messages.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "settingsrows.h"
#include "text.h"
#include "world.h"

#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

class SettingsModelChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void followsContent();
    void destroyedRowIsRemovedAlone();
    void rebuildsConnectOnce();
    void unlistedItemDestroyedIsIgnored();
    void readsAreSafeInsideABatch();
    void twoModelsNeverShowADeadNode();
    void slotFindsItsSender();
    void resetBeginsWithTheNewRoot();
    void nodesMayDieWhenTheResetBegins();
    void rootMayDie();
    void pageMayChangeInsideABatch();
    void pageMayChangeBeforeAReset();
    void manyRowsMayDieAtOnce();

private:
    void declare(const QByteArray &entries);
    void rescan()
    {
        World::rescan(m_registry);
    }

    PluginRegistry *m_registry = nullptr;
};

void SettingsModelChangesTest::init()
{
    World::reset();
    m_registry = PluginRegistry::instance();
    rescan();
}

void SettingsModelChangesTest::declare(const QByteArray &entries)
{
    World::writeEntries(text("x.json"), "{\"entries\": [" + entries + "]}");
    rescan();
}

void SettingsModelChangesTest::followsContent()
{
    declare(R"({"path": "a"})");
    SettingsModel model;
    model.setDepth(1);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&model, &SettingsModel::modelChanged);
    World::writeEntries(text("1.json"), R"({"entries": [{"path": "b"}]})");
    World::writeEntries(text("2.json"), R"({"entries": [{"path": "c"}]})");
    rescan();
    QCOMPARE(names(model), path("a/b/c"));
    QCOMPARE(resets.count(), 1);
    QCOMPARE(changes.count(), 0);
    World::removeEntries(text("x.json"));
    rescan();
    QCOMPARE(names(model), path("b/c"));
}

void SettingsModelChangesTest::destroyedRowIsRemovedAlone()
{
    declare(R"({"path": "a"}, {"path": "b"}, {"path": "c"})");
    SettingsModel model;
    model.setDepth(1);
    QStringList events;
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [&](const QModelIndex &parent, int first, int last) {
                events.append(text("about %1-%2").arg(first).arg(last));
                QVERIFY(!parent.isValid());
            });
    connect(&model, &QAbstractItemModel::rowsRemoved, this, [&](const QModelIndex &, int first, int last) {
        events.append(text("removed %1-%2").arg(first).arg(last));
    });
    connect(&model, &SettingsModel::countChanged, this,
            [&] { events.append(text("count %1").arg(model.count())); });
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("b")));
    QCOMPARE(events, (QStringList{text("about 1-1"), text("removed 1-1"), text("count 2")}));
    QCOMPARE(names(model), path("a/c"));
    QCOMPARE(resets.count(), 0);
}

void SettingsModelChangesTest::rebuildsConnectOnce()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel model;
    for (int i = 0; i < 5; ++i) {
        model.setDepth(i % 2 + 1);
    }
    QCOMPARE(names(model), path("a/b"));
    // Makes a protected function of QObject public.
    struct Access : QObject {
        using QObject::receivers;
    };
    const auto receivers = &Access::receivers;
    QCOMPARE((m_registry->getItem(path("a"))->*receivers)(SIGNAL(destroyed(QObject *))), 1);
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("a")));
    QCOMPARE(counts.count(), 1);
}

void SettingsModelChangesTest::unlistedItemDestroyedIsIgnored()
{
    declare(R"({"path": "a"}, {"path": "page/b"})");
    SettingsModel model;
    model.setDepth(1);
    model.setPath(path("page"));
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("a")));
    QVERIFY(QMetaObject::invokeMethod(&model, "removeDestroyedItem")); // without a destroyed sender
    QCOMPARE(counts.count(), 0);
    QCOMPARE(names(model), path("b"));
}

void SettingsModelChangesTest::readsAreSafeInsideABatch()
{
    declare(R"({"path": "page/a/x"}, {"path": "page/b/y"}, {"path": "page/c/z"})");
    SettingsModel model;
    model.setPath(path("page"));
    model.setDepth(2);
    int reads = 0;
    const auto readAll = [&] {
        ++reads;
        for (int row = -1; row <= model.rowCount(); ++row) {
            for (const int role : {257, 258, 259}) {
                const QVariant read = value(model, row, role);
                QVERIFY(role != 257 || !read.isValid() || read.value<QObject *>());
            }
            model.objectAt(row);
        }
        for (const char *name : {"a", "a/x", "b", "b/y", "c", "c/z"}) {
            if (QObject *object = model.objectForPath(text(name))) {
                QVERIFY(!object->property("title").toString().isEmpty());
            }
        }
    };
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, readAll);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, readAll);
    connect(&model, &SettingsModel::countChanged, this, readAll);
    const MessageLog log; // the page itself is removed, too
    World::removeEntries(text("x.json"));
    rescan();
    QVERIFY(reads >= 9);
    QCOMPARE(model.count(), 0);
}

void SettingsModelChangesTest::twoModelsNeverShowADeadNode()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel first;
    first.setDepth(1);
    SettingsModel second;
    second.setDepth(1);
    const TreeItem *dying = m_registry->getItem(path("a"));
    int reads = 0;
    const auto check = [&] {
        for (const SettingsModel *model : {&first, &second}) {
            for (int row = 0; row < model->rowCount(); ++row) {
                ++reads;
                QVERIFY(value(*model, row, SettingsModel::ObjectRole).value<QObject *>() != dying);
                QVERIFY(model->objectAt(row) != dying);
            }
        }
    };
    for (const SettingsModel *model : {&first, &second}) {
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, check);
        connect(model, &QAbstractItemModel::rowsRemoved, this, check);
    }
    m_registry->getItem({})->removeChild(m_registry->getItem(path("a")));
    QVERIFY(reads > 0);
    QCOMPARE(names(first), path("b"));
    QCOMPARE(names(second), path("b"));
}

void SettingsModelChangesTest::slotFindsItsSender()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel model;
    model.setDepth(1);
    QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    TreeItem stranger(text("stranger"), {});
    connect(&stranger, SIGNAL(objectNameChanged(QString)), &model, SLOT(removeDestroyedItem()));
    stranger.setObjectName(text("x"));
    QCOMPARE(removals.count(), 0);
    connect(item(model, 0), SIGNAL(objectNameChanged(QString)), &model, SLOT(removeDestroyedItem()));
    item(model, 0)->setObjectName(text("x"));
    QCOMPARE(names(model), path("b"));
    QCOMPARE(removals.count(), 1);
    QCOMPARE(counts.count(), 1);
}

void SettingsModelChangesTest::resetBeginsWithTheNewRoot()
{
    declare(R"({"path": "one/a"}, {"path": "two/b"})");
    SettingsModel model;
    model.setDepth(1);
    model.setPath(path("one"));
    QStringList seen;
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&] {
        seen += names(model) + QStringList(model.objectForPath(text("b")) ? text("new root") : text("old root"));
    });
    model.setPath(path("two"));
    QCOMPARE(seen, (QStringList{text("a"), text("new root")}));
    QCOMPARE(names(model), path("b"));
}

void SettingsModelChangesTest::nodesMayDieWhenTheResetBegins()
{
    declare(R"({"path": "one/a"}, {"path": "two/b"}, {"path": "two/c"})");
    SettingsModel model;
    model.setDepth(1);
    model.setPath(path("one"));
    auto *once = new QObject(this);
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, once, [this, once] {
        delete once;
        m_registry->getItem(path("two"))->removeChild(m_registry->getItem(path("two/b")));
    });
    model.setPath(path("two"));
    QCOMPARE(names(model), path("c"));
}

void SettingsModelChangesTest::rootMayDie()
{
    declare(R"({"path": "page/a"})");
    SettingsModel model;
    model.setPath(path("page"));
    model.setDepth(1);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("page")));
    QCOMPARE(model.count(), 0);
    const MessageLog log;
    QCOMPARE(model.objectForPath(text("a")), nullptr);
    QCOMPARE(log.take().size(), 1);
}

void SettingsModelChangesTest::pageMayChangeInsideABatch()
{
    declare(R"({"path": "one/a"}, {"path": "one/b"}, {"path": "one/c"})");
    World::writeEntries(text("other.json"), R"({"entries": [{"path": "two/d"}]})");
    rescan();
    SettingsModel model;
    model.setPath(path("one"));
    model.setDepth(1);
    connect(&model, &SettingsModel::countChanged, this, [&] { model.setPath(path("two")); });
    World::removeEntries(text("x.json"));
    rescan();
    QCOMPARE(names(model), path("d"));
}

void SettingsModelChangesTest::pageMayChangeBeforeAReset()
{
    declare(R"({"path": "one/a"}, {"path": "two/b"})");
    SettingsModel model;
    model.setDepth(1);
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&] { model.setPath(path("two")); });
    model.setPath(path("one"));
    QCOMPARE(model.path(), path("two"));
    QCOMPARE(names(model), path("b"));
}

void SettingsModelChangesTest::manyRowsMayDieAtOnce()
{
    // Finding each dead row from the first one on would take 100 times as long for 10 times the rows.
    const auto work = [this](int count) {
        QByteArray entries;
        for (int i = 0; i < count; ++i) {
            entries += "{\"path\": \"" + QByteArray::number(i) + "\", \"order\": " + QByteArray::number(i % 7)
                       + "},";
        }
        entries.chop(1);
        declare(entries);
        SettingsModel model;
        model.setDepth(1);
        if (model.count() != count) {
            return qint64(-1);
        }
        QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
        CpuTimer timer;
        timer.start();
        World::removeEntries(text("x.json"));
        rescan();
        return removals.count() == count ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(work, 10000));
}

QTEST_GUILESS_MAIN(SettingsModelChangesTest)
#include "tst_settingsmodelchanges.moc"
