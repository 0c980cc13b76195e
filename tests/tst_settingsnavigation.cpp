// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "entryfiles.h"
#include "messagelog.h"
#include "testsize.h"
#include "text.h"
#include "watchednavigation.h"

#include <QCoreApplication>
#include <QPointer>
#include <QRandomGenerator>
#include <QSet>
#include <QTest>

#include <functional>
#include <iterator>
#include <utility>

namespace
{
const QString s_file = QStringLiteral("sound.json");
const QByteArrayList s_entries = {R"(
    {"path": "top/sound", "type": "page"},
    {"path": "top/sound/volume", "type": "integer"},
    {"path": "top/sound/tones/ring", "type": "page"},
    {"path": "top/sound/tones/loud", "type": "bool"},
    {"path": "top/sound/volume/step", "type": "custom_tile"},
    {"path": "top/wlan", "type": "page"},
    {"path": "other/page", "type": "page"},
    {"path": "flashlight", "type": "action"})"};

class Deleter : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void deleteSender()
    {
        delete sender();
    }
};
}

using namespace EntryFiles;

class SettingsNavigationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void beginsAtTheRoot();
    void opensAndGoesBack();
    void opensTheNearestPage_data();
    void opensTheNearestPage();
    void refusesWhatHasNoPage_data();
    void refusesWhatHasNoPage();
    void openPageIsGoneBackTo();
    void requestsTheSameRowAgain();
    void opensBesideAPage();
    void forgetsTheOldestPages();
    void otherRootClosesAll();
    void hostNamesTheTypesOfPages();
    void closesVanishedPages();
    void closesMaskedPages();
    void closesOutsideABatch();
    void isSilentWhenOthersChange();
    void stateIsRestored();
    void restoresWhatExists();
    void ignoresOtherStates_data();
    void ignoresOtherStates();
    void handlersMayNavigate();
    void handlersMayDeleteIt_data();
    void handlersMayDeleteIt();
    void pathOfManyNames();
    void randomUse();
};

void SettingsNavigationTest::init()
{
    EntryFiles::reset();
    install(s_file, s_entries);
}

void SettingsNavigationTest::beginsAtTheRoot()
{
    SettingsNavigation navigation;
    QCOMPARE(navigation.paths(), QStringList{QString()});
    QCOMPARE(navigation.current(), QString());
    QVERIFY(!navigation.canGoBack());
    QCOMPARE(navigation.row(), QString());
    QCOMPARE(navigation.state(), QString());
    navigation.setRoot(text("/none/"));
    QCOMPARE(navigation.paths(), QStringList{text("none")});
    QCOMPARE(navigation.current(), text("none"));
    QVERIFY(!navigation.back());
}

void SettingsNavigationTest::opensAndGoesBack()
{
    WatchedNavigation navigation;
    QVERIFY(navigation.open(text("top/sound")));
    QCOMPARE(navigation.takeChanges(), names("paths current canGoBack state"));
    QVERIFY(navigation.open(text("/top//wlan/")));
    QCOMPARE(navigation.takeChanges(), names("paths current state"));
    QCOMPARE(navigation.paths(), names("top top/sound top/wlan"));
    QCOMPARE(navigation.current(), text("top/wlan"));
    QVERIFY(navigation.open(text("top/wlan")));
    QCOMPARE(navigation.takeChanges(), QStringList());
    QVERIFY(navigation.back());
    QCOMPARE(navigation.current(), text("top/sound"));
    QCOMPARE(navigation.takeChanges(), names("paths current state"));
    QVERIFY(navigation.back());
    QCOMPARE(navigation.takeChanges(), names("paths current canGoBack state"));
    QVERIFY(!navigation.back());
    QCOMPARE(navigation.paths(), names("top"));
    QCOMPARE(navigation.takeChanges(), QStringList());
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::opensTheNearestPage_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QString>("row");
    const auto row = [](const char *root, const char *path, const QStringList &paths, const char *row) {
        QTest::addRow("%s from %s", path, root) << text(root) << text(path) << paths << text(row);
    };
    row("top", "top/sound", names("top top/sound"), "");
    row("top", "top/sound/volume", names("top top/sound"), "top/sound/volume");
    row("top", "/top//sound/volume/", names("top top/sound"), "top/sound/volume");
    row("top", "top/sound/tones", names("top top/sound/tones"), "");
    row("top", "top/sound/tones/loud", names("top top/sound/tones"), "top/sound/tones/loud");
    row("top", "top/sound/volume/step", names("top top/sound"), "top/sound/volume/step");
    row("top", "other/page", names("top other/page"), "");
    row("top", "top", names("top"), "");
    row("top/sound/tones", "top/sound/tones/loud", names("top/sound/tones"), "top/sound/tones/loud");
    row("top/sound/volume", "top/sound/volume/step", names("top/sound/volume"), "top/sound/volume/step");
    row("none", "none", names("none"), "");
    row("", "", {QString()}, "");
    row("", "flashlight", {QString()}, "flashlight");
    row("", "top", {QString(), text("top")}, "");
}

void SettingsNavigationTest::opensTheNearestPage()
{
    QFETCH(QString, root);
    QFETCH(QString, path);
    QFETCH(QStringList, paths);
    QFETCH(QString, row);
    SettingsNavigation navigation;
    navigation.setRoot(root);
    QVERIFY(navigation.open(path));
    QCOMPARE(navigation.paths(), paths);
    QCOMPARE(navigation.row(), row);
}

void SettingsNavigationTest::refusesWhatHasNoPage_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("unknown") << text("top/none");
    QTest::newRow("below a control") << text("top/sound/volume/none");
    QTest::newRow("empty") << QString();
    QTest::newRow("slashes") << text("//");
    QTest::newRow("no page above it") << text("flashlight");
    QTest::newRow("URL") << text("velka-settings:/top/sound");
    QTest::newRow("parent directory") << text("top/../top/sound");
    QTest::newRow("many names") << text("top") + text("/a").repeated(10000);
}

void SettingsNavigationTest::refusesWhatHasNoPage()
{
    QFETCH(QString, path);
    WatchedNavigation navigation({text("top/sound/volume")});
    const MessageLog log;
    QVERIFY(!navigation.open(path));
    QVERIFY(!navigation.openFrom(text("top"), path));
    const QString warning = settingsWarning(Messages::NoPage, path.left(100));
    QCOMPARE(MessageLog::take(), QStringList({warning, warning}));
    QCOMPARE(navigation.takeChanges(), QStringList());
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::openPageIsGoneBackTo()
{
    WatchedNavigation navigation(names("top/sound top/wlan other/page"));
    QVERIFY(navigation.open(text("top/sound/volume")));
    QCOMPARE(navigation.paths(), names("top top/sound"));
    QCOMPARE(navigation.takeChanges(),
             names("paths current row state") + QStringList{text("requested top/sound/volume")});
    for (int i = 0; i < 1000; ++i) {
        QVERIFY(navigation.open(text("top/wlan")));
        QVERIFY(navigation.open(text("top/sound")));
    }
    QCOMPARE(navigation.paths(), names("top top/sound"));
    QVERIFY(navigation.open(text("top/wlan")));
    QVERIFY(navigation.open(text("top")));
    QCOMPARE(navigation.paths(), names("top"));
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::requestsTheSameRowAgain()
{
    const QStringList requested{text("requested top/sound/volume")};
    WatchedNavigation navigation;
    QVERIFY(navigation.open(text("top/sound/volume")));
    QCOMPARE(navigation.takeChanges(), names("paths current canGoBack row state") + requested);
    QVERIFY(navigation.open(text("top/sound/volume")));
    QCOMPARE(navigation.takeChanges(), requested);
    QVERIFY(navigation.open(text("top/sound")));
    QCOMPARE(navigation.takeChanges(), names("row state"));
    QCOMPARE(navigation.row(), QString());
}

void SettingsNavigationTest::opensBesideAPage()
{
    WatchedNavigation navigation(names("top/sound top/sound/tones top/sound/tones/ring"));
    QVERIFY(navigation.openFrom(text("/top/sound"), text("top/wlan")));
    QCOMPARE(navigation.paths(), names("top top/sound top/wlan"));
    QCOMPARE(navigation.takeChanges(), names("paths current state"));
    QVERIFY(navigation.openFrom(text("top"), text("other/page")));
    QCOMPARE(navigation.paths(), names("top other/page"));
    QVERIFY(navigation.openFrom(text("top/wlan"), text("top/sound"))); // a page that is not open
    QCOMPARE(navigation.paths(), names("top other/page top/sound"));
    QVERIFY(navigation.openFrom(text("top/sound"), text("other/page")));
    QCOMPARE(navigation.paths(), names("top other/page"));
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::forgetsTheOldestPages()
{
    QByteArrayList entries;
    for (int i = 0; i < 300; ++i) {
        entries.append("{\"path\": \"many/" + QByteArray::number(i) + "\"}");
    }
    install(text("many.json"), entries);
    WatchedNavigation navigation;
    for (int i = 0; i < 300; ++i) {
        QVERIFY(navigation.open(text("many/%1").arg(i)));
    }
    QCOMPARE(navigation.paths().size(), 101);
    QCOMPARE(navigation.paths().constFirst(), text("top"));
    QCOMPARE(navigation.paths().at(1), text("many/200"));
    QCOMPARE(navigation.current(), text("many/299"));
    SettingsNavigation other;
    other.setRoot(text("top"));
    other.setState(navigation.state());
    QCOMPARE(other.paths(), navigation.paths());
}

void SettingsNavigationTest::otherRootClosesAll()
{
    WatchedNavigation navigation(names("top/sound/volume"));
    navigation.setRoot(text("other"));
    QCOMPARE(navigation.takeChanges(), names("root paths current canGoBack row state"));
    QCOMPARE(navigation.paths(), names("other"));
    navigation.setRoot(text("/other"));
    QCOMPARE(navigation.takeChanges(), QStringList());
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::hostNamesTheTypesOfPages()
{
    WatchedNavigation navigation;
    QCOMPARE(navigation.pageTypes(), names("page section"));
    navigation.setPageTypes(names("integer"));
    navigation.setPageTypes(names("integer"));
    QCOMPARE(navigation.takeChanges(), names("pageTypes"));
    QVERIFY(navigation.open(text("top/sound/volume/step")));
    QCOMPARE(navigation.paths(), names("top top/sound/volume"));
    QVERIFY(navigation.open(text("top/wlan")));
    QCOMPARE(navigation.paths(), names("top"));
    QCOMPARE(navigation.row(), text("top/wlan"));
}

void SettingsNavigationTest::closesVanishedPages()
{
    install(text("more.json"), {R"({"path": "top/more"}, {"path": "top/more/most"})"});
    WatchedNavigation navigation(names("top/more top/wlan top/more/most"));
    uninstall(text("more.json"));
    QCOMPARE(navigation.takeChanges(),
             names("paths current state") + QStringList({text("closed top/more"), text("closed top/more/most")}));
    QCOMPARE(navigation.paths(), names("top top/wlan"));
    install(text("more.json"), {R"({"path": "top/more"})"}); // which stays closed
    QCOMPARE(navigation.takeChanges(), QStringList());
    QVERIFY(navigation.open(text("top/sound/volume")));
    navigation.takeChanges();
    uninstall(s_file); // the root, too
    QCOMPARE(navigation.takeChanges(), names("paths current canGoBack row state")
                                           + QStringList({text("closed top/wlan"), text("closed top/sound")}));
    QCOMPARE(navigation.paths(), names("top"));
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::closesMaskedPages()
{
    WatchedNavigation navigation(names("top/wlan top/sound/volume/step"));
    World::setMasked(names("top/wlan"));
    QCOMPARE(navigation.takeChanges(), names("paths state") + QStringList{text("closed top/wlan")});
    QCOMPARE(navigation.row(), text("top/sound/volume/step"));
    World::setMasked(names("top/sound/volume/step"));
    QCOMPARE(navigation.takeChanges(), names("row state"));
    QCOMPARE(navigation.paths(), names("top top/sound"));
    World::setMasked({});
    QCOMPARE(navigation.takeChanges(), QStringList());
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::closesOutsideABatch()
{
    WatchedNavigation navigation(names("top/wlan"));
    registry()->removeEntriesForFile(s_file);
    QTRY_COMPARE(navigation.paths(), names("top"));
    QVERIFY(navigation.isAsAnnounced());
    registry()->addEntriesForFile(s_file);
}

void SettingsNavigationTest::isSilentWhenOthersChange()
{
    WatchedNavigation navigation(names("top/wlan top/sound/volume"));
    install(text("more.json"), {R"({"path": "top/sound/volume/more"}, {"path": "top", "title": "Top"})"});
    uninstall(text("more.json"));
    QCoreApplication::processEvents();
    QCOMPARE(navigation.takeChanges(), QStringList());
}

void SettingsNavigationTest::stateIsRestored()
{
    WatchedNavigation saved(names("top/wlan other/page top/sound/volume"));
    WatchedNavigation restored(names("top/sound"));
    restored.setState(saved.state());
    QCOMPARE(restored.paths(), saved.paths());
    QCOMPARE(restored.row(), saved.row());
    QCOMPARE(restored.state(), saved.state());
    QCOMPARE(restored.takeChanges(), names("paths row state"));
    restored.setState(saved.state());
    QCOMPARE(restored.takeChanges(), QStringList());
    restored.setState(QString());
    QCOMPARE(restored.paths(), names("top"));
    QCOMPARE(restored.state(), QString());
    QVERIFY(restored.isAsAnnounced());
}

void SettingsNavigationTest::restoresWhatExists()
{
    install(text("more.json"), {R"({"path": "top/more"})"});
    WatchedNavigation saved(names("top/more top/wlan top/sound/volume/step"));
    const QString state = saved.state();
    uninstall(text("more.json"));
    World::setMasked(names("top/sound/volume/step"));
    WatchedNavigation restored;
    const MessageLog log;
    restored.setState(state);
    QCOMPARE(restored.paths(), names("top top/wlan top/sound"));
    QCOMPARE(restored.row(), QString());
    restored.setState(text(R"({"pages": ["top", "", "/top/wlan", "top/wlan/", "top/sound/volume", "flashlight"],
                              "row": "top/sound/volume"})")); // of another page
    QCOMPARE(restored.paths(), names("top top/wlan"));
    QCOMPARE(restored.row(), QString());
    QCOMPARE(MessageLog::take(), QStringList());
    QVERIFY(restored.isAsAnnounced());
}

void SettingsNavigationTest::ignoresOtherStates_data()
{
    QTest::addColumn<QString>("state");
    QTest::newRow("no JSON") << text("top/wlan");
    QTest::newRow("array") << text(R"(["top/wlan"])");
    QTest::newRow("no pages") << text(R"({"row": ""})");
    QTest::newRow("no row") << text(R"({"pages": ["top/wlan"]})");
    QTest::newRow("text as pages") << text(R"({"pages": "top/wlan", "row": ""})");
    QTest::newRow("number as page") << text(R"({"pages": [1], "row": ""})");
    QTest::newRow("number as row") << text(R"({"pages": ["top/wlan"], "row": 1})");
    QTest::newRow("cut off") << text(R"({"pages": ["top/wlan"], "row": ")");
    QTest::newRow("too many pages")
        << text(R"({"pages": [%1"top/wlan"], "row": ""})").arg(text("\"top/wlan\",").repeated(100));
    QTest::newRow("huge") << text(R"({"pages": [%1"top/wlan"], "row": ""})").arg(text("\"a\",").repeated(1000000));
    QTest::newRow("nested") << text("[").repeated(100000);
}

void SettingsNavigationTest::ignoresOtherStates()
{
    QFETCH(QString, state);
    WatchedNavigation navigation(names("top/sound/volume"));
    QTest::ignoreMessage(QtWarningMsg, Messages::WrongNavigationState);
    navigation.setState(state);
    QCOMPARE(navigation.takeChanges(), QStringList());
    QCOMPARE(navigation.paths(), names("top top/sound"));
}

void SettingsNavigationTest::handlersMayNavigate()
{
    WatchedNavigation navigation(names("top/wlan"));
    connect(&navigation, &SettingsNavigation::closed, &navigation, [&] { navigation.open(text("other")); });
    connect(&navigation, &SettingsNavigation::pathsChanged, &navigation, [&] {
        if (navigation.current() == text("top/sound")) {
            navigation.open(text("top/sound/tones/loud"));
        }
    });
    QVERIFY(navigation.open(text("top/sound")));
    QCOMPARE(navigation.paths(), names("top top/wlan top/sound top/sound/tones"));
    QCOMPARE(navigation.takeChanges(),
             names("paths paths current row state") + QStringList{text("requested top/sound/tones/loud")});
    install(text("other.json"), {R"({"path": "other", "type": "page"})"});
    uninstall(s_file);
    QCOMPARE(navigation.paths(), names("top other"));
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::handlersMayDeleteIt_data()
{
    QTest::addColumn<QByteArray>("signal");
    for (const char *signal : {"rootChanged()", "pathsChanged()", "currentChanged()", "canGoBackChanged()",
                               "rowChanged()", "stateChanged()", "rowRequested(QString)", "closed(QString)"}) {
        QTest::newRow(signal) << '2' + QByteArray(signal);
    }
}

void SettingsNavigationTest::handlersMayDeleteIt()
{
    QFETCH(QByteArray, signal);
    Deleter deleter;
    const QPointer<SettingsNavigation> navigation(new SettingsNavigation);
    QVERIFY(connect(navigation, signal.constData(), &deleter, SLOT(deleteSender())));
    navigation->setRoot(text("top"));
    if (navigation) {
        navigation->open(text("top/sound/volume"));
    }
    uninstall(s_file);
    QVERIFY(!navigation);
}

void SettingsNavigationTest::pathOfManyNames()
{
    const QByteArray path = "top" + QByteArray("/a").repeated(20000);
    install(text("deep.json"),
            {R"({"path": ")" + path + R"("}, {"path": ")" + path + R"(/switch", "type": "bool"})"});
    WatchedNavigation navigation;
    QVERIFY(navigation.open(QString::fromLatin1(path) + text("/switch")));
    QCOMPARE(navigation.current(), QString::fromLatin1(path));
    uninstall(text("deep.json"));
    QCOMPARE(navigation.paths(), names("top"));
    QVERIFY(navigation.isAsAnnounced());
}

void SettingsNavigationTest::randomUse()
{
    const QStringList addresses = names(
        "top top/sound top/sound/volume top/sound/tones top/sound/tones/ring top/wlan "
        "other other/page top/more top/more/most flashlight none");
    const QByteArrayList more = {R"({"path": "top/more"}, {"path": "top/more/most"})"};
    const MessageLog log;
    QRandomGenerator random(7);
    WatchedNavigation navigation;
    QStringList states;
    const auto address = [&] { return addresses.at(random.bounded(addresses.size())); };
    const std::function<void()> steps[] = {
        [&] { navigation.open(address()); },
        [&] { navigation.openFrom(address(), address()); },
        [&] { navigation.back(); },
        [&] { states.append(navigation.state()); },
        [&] { navigation.setState(states.value(random.bounded(states.size() + 1))); },
        [&] {
            World::setMasked({address(), address()});
        },
        [&] { install(text("more.json"), more); },
        [&] { uninstall(text("more.json")); },
    };
    for (int i = 0; i < testSize(5000); ++i) {
        steps[random.bounded(int(std::size(steps)))]();
        QVERIFY(navigation.isAsAnnounced());
        const QStringList paths = navigation.paths();
        QCOMPARE(QSet<QString>(paths.begin(), paths.end()).size(), paths.size());
        QStringList shown = paths.mid(1);
        if (!navigation.row().isEmpty()) {
            shown.append(navigation.row());
        }
        for (const QString &path : qAsConst(shown)) {
            QVERIFY2(registry()->getItem(path.split(QLatin1Char('/'))), qPrintable(path));
        }
    }
}

QTEST_GUILESS_MAIN(SettingsNavigationTest)

#include "tst_settingsnavigation.moc"
