// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "dconftool.h"
#include "favoritesedits.h"
#include "messagelog.h"
#include "nodescriptors.h"
#include "privateworld.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>

#include <QDBusConnection>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <optional>

// The favourites while the process has no descriptor left, so that dconf cannot open its database.
class MissingDescriptorsTest : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void noteChange();

private Q_SLOTS:
    void initTestCase();
    void init();

    void refusesEdits_data();
    void refusesEdits();
    void refusesEditsOfHandlers_data();
    void refusesEditsOfHandlers();
    void keepsTheRowsUntilTheyCanBeRead();
    void itemBeginsLater();
    void processUsesDconfLater();

private:
    void waitForChange();

    int m_changes = 0; ///< that dconf's service has announced
};

/// Programs that have not used dconf yet: run in processes of their own.
class UnconnectedWorlds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstItem();
};

namespace
{
/// Changes the database, which dconf then has to open before it can read another value.
void outdateTheDatabase()
{
    static int number = 0;
    store(text("/test/other"), QString::number(++number));
}

QString refusal()
{
    return text("warning org.orvantaos.settings.framework: %1 \"%2\" \"Too many open files\"")
        .arg(text(Messages::CannotReadFavorites), WatchedFavorites::keyOfTests());
}

void edits()
{
    QTest::addColumn<FavoritesEdit>("edit");
    QTest::addColumn<bool>("isOutdated");
    for (const bool isOutdated : {false, true}) {
        const char *const when = isOutdated ? "before the database is opened" : "while it is open";
        QTest::addRow("add %s", when) << FavoritesEdit([](WatchedFavorites *model) {
            (*model)->addFavorite(text("d"));
        }) << isOutdated;
        QTest::addRow("remove %s", when)
            << FavoritesEdit([](WatchedFavorites *model) { (*model)->removeFavorite(text("b")); }) << isOutdated;
        QTest::addRow("move %s", when) << FavoritesEdit([](WatchedFavorites *model) { (*model)->move(0, 2); })
                                       << isOutdated;
    }
}
}

void MissingDescriptorsTest::noteChange()
{
    ++m_changes;
}

void MissingDescriptorsTest::waitForChange()
{
    QTRY_VERIFY(m_changes > 0);
    QCoreApplication::processEvents();
}

void MissingDescriptorsTest::initTestCase()
{
    QVERIFY(QDBusConnection::sessionBus().connect({}, {}, text("ca.desrt.dconf.Writer"), text("Notify"), this,
                                                  SLOT(noteChange())));
}

void MissingDescriptorsTest::init()
{
    storeThreeFavorites();
    storeUserModified(false);
    waitForWrites();
    settle();
    m_changes = 0;
}

void MissingDescriptorsTest::refusesEdits_data()
{
    edits();
}

void MissingDescriptorsTest::refusesEdits()
{
    QFETCH(FavoritesEdit, edit);
    QFETCH(bool, isOutdated);
    WatchedFavorites model;
    const MessageLog log;
    if (isOutdated) {
        outdateTheDatabase();
    }
    {
        const NoDescriptors none;
        edit(&model);
        QCOMPARE(log.take(), QStringList(refusal()));
        QCOMPARE(model.takeSignals(), QStringList());
        QCOMPARE(model.names(), path("a/b/c"));
        QVERIFY(!model->userModified());
        if (isOutdated) {
            waitForChange();
        }
    }
    settle();
    QCOMPARE(model.takeSignals(), QStringList());
    QVERIFY(areThreeFavoritesStored());
    QVERIFY(model.isConsistent());
    edit(&model);
    waitForWrites();
    QVERIFY(!areThreeFavoritesStored());
    QVERIFY(model.isConsistent());
    QVERIFY(model->userModified());
    QCOMPARE(log.take(), QStringList());
}

void MissingDescriptorsTest::refusesEditsOfHandlers_data()
{
    edits();
}

// The descriptors are used up when the edit has begun.
void MissingDescriptorsTest::refusesEditsOfHandlers()
{
    QFETCH(FavoritesEdit, edit);
    QFETCH(bool, isOutdated);
    WatchedFavorites model;
    const MessageLog log;
    std::optional<NoDescriptors> none;
    const auto connection = connect(&*model, &FavoritesModel::userModifiedChanged, this, [&] {
        if (isOutdated) {
            waitForWrites();
        }
        none.emplace();
    });
    edit(&model);
    QVERIFY(disconnect(connection));
    QVERIFY(log.take().contains(refusal()));
    QCOMPARE(model.names(), path("a/b/c"));
    none.reset();
    settle();
    QVERIFY(areThreeFavoritesStored());
    QVERIFY(model.isConsistent());
}

void MissingDescriptorsTest::keepsTheRowsUntilTheyCanBeRead()
{
    WatchedFavorites model;
    const MessageLog log;
    int fewestRows = model->count();
    connect(&*model, &FavoritesModel::countChanged, this,
            [&] { fewestRows = std::min(fewestRows, model->count()); });
    store(model->key(), text("['d', 'a']"));
    {
        const NoDescriptors none;
        waitForChange();
        QCOMPARE(model.names(), path("a/b/c"));
    }
    QTRY_COMPARE(model.names(), path("d/a"));
    QCOMPARE(fewestRows, 2);
    QVERIFY(model.isConsistent());
    QCOMPARE(log.take(), QStringList());
}

void MissingDescriptorsTest::itemBeginsLater()
{
    outdateTheDatabase();
    std::optional<NoDescriptors> none(std::in_place);
    QTest::ignoreMessage(QtWarningMsg, "MGConfItem: cannot read \"/apps/velka-settings/favorites\" yet");
    const MGConfItem item(WatchedFavorites::keyOfTests());
    QSignalSpy changes(&item, &MGConfItem::valueChanged);
    QVERIFY(!item.value().isValid());
    none.reset();
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(item.value(), QVariant(path("a/b/c")));
}

void MissingDescriptorsTest::processUsesDconfLater()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("firstItem")));
}

void UnconnectedWorlds::firstItem()
{
    World::writeFile(text("profile"), "user-db:user\n");
    const PrivateBus bus;
    std::optional<NoDescriptors> none(std::in_place);
    QTest::ignoreMessage(QtWarningMsg, "MGConfItem: cannot read \"/test/key\" yet");
    MGConfItem item(text("/test/key"));
    QTest::ignoreMessage(QtWarningMsg, "MGConfItem: cannot write \"/test/key\": no descriptor is free");
    item.set(1);
    QVERIFY(!item.value().isValid());
    none.reset();
    QSignalSpy changes(&item, &MGConfItem::valueChanged);
    store(item.key(), text("2"));
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(item.value(), QVariant(2));
    item.set(3);
    QTRY_COMPARE(stored(item.key()), QByteArrayLiteral("3"));
    QCOMPARE(changes.count(), 2);
}

int main(int argc, char *argv[])
{
    MissingDescriptorsTest test;
    UnconnectedWorlds worlds;
    return runTest(argc, argv, &test, &worlds);
}

#include "tst_missingdescriptors.moc"
