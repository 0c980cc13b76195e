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

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
QString fileOf(const PluginRegistry &registry, const char *joined)
{
    const TreeItem *item = registry.getItem(path(joined));
    return item ? item->fromFile() : text("no node");
}
}

class RegistryMaskingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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

    void manyFilesMaskedAtOnce();
};

void RegistryMaskingTest::init()
{
    World::reset();
}

void RegistryMaskingTest::maskHidesAndUnmaskRestores()
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

void RegistryMaskingTest::maskFromAnotherProcess()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    waitForWrites();
    QCOMPARE(QProcess::execute(text("dconf"), {text("write"), Constants::MaskedSettingsKey, text("['x']")}), 0);
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), QStringList());
}

void RegistryMaskingTest::maskNeedsTheExactSpelling()
{
    World::writeEntries(text("1.json"), declaring("One", {"/a/b"}));
    World::writeEntries(text("2.json"), declaring("Two", {"c//d"}));
    World::setMasked({text("a/b"), text("c//d"), text("A/B")});
    const PluginRegistry registry;
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b")}));
}

void RegistryMaskingTest::maskLeavesEntriesBelow()
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
    // When it is masked again, the node is removed with the last entry below it.
    World::setMasked({text("a/b")});
    QTRY_COMPARE(changes.count(), 3);
    registry.removeEntriesForFile(text("2.json"));
    QCOMPARE(paths(registry), QStringList());
}

void RegistryMaskingTest::maskLeavesOtherSpellingAlone()
{
    World::writeEntries(text("1.json"),
                        R"({"entries": [{"path": "a", "title": "Masked"}, {"path": "/a", "title": "Shown"}]})");
    World::writeEntries(text("2.json"), declaring("Two", {"a/b"}));
    PluginRegistry registry;
    World::setMasked({text("a")});
    registry.addEntriesForFile(text("1.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Shown"));
    // The masked entry is loaded last, when the other one is at that path.
    World::writeEntries(text("1.json"),
                        R"({"entries": [{"path": "/a", "title": "Shown"}, {"path": "a", "title": "Masked"}]})");
    registry.addEntriesForFile(text("1.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Shown"));
}

void RegistryMaskingTest::maskLeavesOtherFileAlone()
{
    World::writeEntries(text("1.json"), declaring("One", {"a"}));
    World::writeEntries(text("2.json"), declaring("Two", {"a"}));
    World::writeEntries(text("3.json"), declaring("Three", {"a/b"}));
    PluginRegistry registry;
    World::removeEntries(text("2.json"));
    World::rescan(&registry); // the node stays with its data because of the entry below it
    const MessageLog log;
    World::setMasked({text("a")});
    QCOMPARE(log.take(), QStringList{settingsWarning(Messages::CannotReadEntries, text("2.json"))});
    registry.addEntriesForFile(text("1.json"));
    QCOMPARE(fileOf(registry, "a"), text("2.json"));
    QCOMPARE(registry.getItem(path("a"))->title(), text("Two"));
}

void RegistryMaskingTest::maskOfSeveralEntriesIsOneBatch()
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

void RegistryMaskingTest::maskOfUnknownEntryWaits()
{
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("x")});
    World::writeEntries(text("x.json"), declaring("X", {"x", "y"}));
    World::rescan(&registry);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), path("y"));
}

void RegistryMaskingTest::maskWithoutEffectIsSilent()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    World::setMasked({text("x")});
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("x"), text("nowhere")});
    World::setMasked({text("elsewhere"), text("x")});
    // A change with an effect comes after them, so they have been handled.
    World::setMasked({});
    QTRY_COMPARE(paths(registry), path("x"));
    QCOMPARE(changes.count(), 1);
}

void RegistryMaskingTest::maskOfUndeclaredNode()
{
    World::writeEntries(text("x.json"), declaring("X", {"a/b"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    const MessageLog log;
    World::setMasked({text("a")});
    QTRY_COMPARE(changes.count(), 1);
    // No file declared the node, so there is none to load again.
    QCOMPARE(log.take(), QStringList{settingsWarning("Can't read entries file", QString())});
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b")}));
}

void RegistryMaskingTest::blacklistedPathIsMaskedAtStartOnly()
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

void RegistryMaskingTest::maskedEntryOfVanishedFileIsForgotten()
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

void RegistryMaskingTest::maskOfWrongType()
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

void RegistryMaskingTest::manyFilesMaskedAtOnce()
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

QTEST_GUILESS_MAIN(RegistryMaskingTest)
#include "tst_registrymasking.moc"
