// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationitem.h"
#include "applications/desktopfiles.h"
#include "applications/idlist.h"

#include "applications.h"
#include "registry/treeitem.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

#include <memory>

// One application, and the properties of ids and desktop files.
class ApplicationItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutLauncherEntry();
    void readsTheDesktopFile();
    void withoutItsOwnKeys();
    void section();
    void sectionDies();
    void launcherEntryDies();
    void followsSandboxing();
    void applicationIds_data();
    void applicationIds();
    void locatesDesktopFiles_data();
    void locatesDesktopFiles();
    void idList();
};

void ApplicationItemTest::withoutLauncherEntry()
{
    TreeItem applications(text("applications"), {});
    const ApplicationItem item(nullptr, &applications, nullptr);
    QVERIFY(!item.section().isValid());
    for (const QString &value :
         {item.iconId(), item.iconMode(), item.name(), item.fileName(), item.fileId(), item.dBusServiceName()}) {
        QVERIFY(value.isNull());
    }
    QVERIFY(!item.isValid());
    QVERIFY(!item.sandboxed());
}

void ApplicationItemTest::readsTheDesktopFile()
{
    const Applications applications;
    applications.write("first/sub/app.desktop",
                       application("App",
                                   "Icon=icon-app\nX-DBus-ServiceName=org.example.App\n"
                                   "[X-Zephra-Application]\nIconMode=crop\n[X-Application]\nSandboxing=Yes\n"));
    const LauncherFolderModel launcher;
    const ApplicationItem item(itemAt(launcher, 0), nullptr, nullptr);
    QCOMPARE(item.name(), text("App"));
    QCOMPARE(item.iconId(), text("icon-app"));
    QCOMPARE(item.iconMode(), text("crop"));
    QCOMPARE(item.fileName(), applications.path("first/sub/app.desktop"));
    QCOMPARE(item.fileId(), text("sub-app.desktop"));
    QCOMPARE(item.dBusServiceName(), text("org.example.App"));
    QVERIFY(item.isValid());
    QVERIFY(item.sandboxed());
    QVERIFY(!item.section().isValid());
}

void ApplicationItemTest::withoutItsOwnKeys()
{
    const Applications applications;
    applications.write("first/app.desktop", application("App"));
    const LauncherFolderModel launcher;
    const ApplicationItem item(itemAt(launcher, 0), nullptr, nullptr);
    QVERIFY(item.iconMode().isEmpty());
    QVERIFY(item.dBusServiceName().isEmpty());
    QVERIFY(!item.sandboxed());
}

void ApplicationItemTest::section()
{
    const Applications applications;
    applications.write("first/sub/app.desktop", application("App"));
    const LauncherFolderModel launcher;
    TreeItem section(text("applications"), {});
    // Under the name of the file, not under the id.
    section.insertItem({text("sub-app.desktop")}, {});
    QVERIFY(!ApplicationItem(itemAt(launcher, 0), &section, nullptr).section().isValid());
    TreeItem *page = section.insertItem({text("app.desktop")}, {});
    QQmlEngine engine;
    engine.newQObject(page); // QML would own it if C++ did not
    QCOMPARE(QQmlEngine::objectOwnership(page), QQmlEngine::JavaScriptOwnership);
    const ApplicationItem item(itemAt(launcher, 0), &section, nullptr);
    QCOMPARE(item.section().value<QObject *>(), page);
    QCOMPARE(QQmlEngine::objectOwnership(page), QQmlEngine::CppOwnership);
}

void ApplicationItemTest::sectionDies()
{
    const Applications applications;
    applications.write("first/app.desktop", application("App"));
    const LauncherFolderModel launcher;
    TreeItem section(text("applications"), {});
    TreeItem *page = section.insertItem({text("app.desktop")}, {});
    const ApplicationItem item(itemAt(launcher, 0), &section, nullptr);
    section.removeChild(page);
    QVERIFY(!item.section().isValid());
    QCOMPARE(item.name(), text("App"));
}

void ApplicationItemTest::launcherEntryDies()
{
    const Applications applications;
    applications.write("first/app.desktop", application("App", "Icon=x\n[X-Tarnhold]\n"));
    auto launcher = std::make_unique<LauncherFolderModel>();
    const ApplicationItem item(itemAt(*launcher, 0), nullptr, nullptr);
    QVERIFY(item.sandboxed());
    launcher.reset();
    QVERIFY(item.name().isNull());
    QVERIFY(item.iconId().isNull());
    QVERIFY(item.iconMode().isNull());
    QVERIFY(item.fileName().isNull());
    QVERIFY(item.fileId().isNull());
    QVERIFY(item.dBusServiceName().isNull());
    QVERIFY(!item.isValid());
    QVERIFY(item.sandboxed()); // the last value of the entry
}

void ApplicationItemTest::followsSandboxing()
{
    const Applications applications;
    applications.write("first/app.desktop", application("App"));
    const LauncherFolderModel launcher;
    LauncherItem *entry = itemAt(launcher, 0);
    const ApplicationItem item(entry, nullptr, nullptr);
    QSignalSpy changed(entry, &LauncherItem::itemChanged);
    QSignalSpy sandboxedChanged(&item, &ApplicationItem::sandboxedChanged);

    applications.replace("first/app.desktop", application("Other"));
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(item.name(), text("Other"));
    QCOMPARE(sandboxedChanged.count(), 0);

    applications.replace("first/app.desktop", application("Other", "[X-Tarnhold]\n"));
    QTRY_COMPARE(sandboxedChanged.count(), 1);
    QVERIFY(item.sandboxed());

    applications.replace("first/app.desktop", application("Other", "[X-Tarnhold]\nSandboxing=Disabled\n"));
    QTRY_COMPARE(sandboxedChanged.count(), 2);
    QVERIFY(!item.sandboxed());
}

void ApplicationItemTest::applicationIds_data()
{
    QTest::addColumn<QString>("fileId");
    QTest::addColumn<QString>("id");
    QTest::newRow("usual") << text("foo.desktop") << text("foo");
    QTest::newRow("with dots") << text("org.example.Foo.desktop") << text("org.example.Foo");
    QTest::newRow("every one") << text("foo.desktop.desktop") << text("foo");
    QTest::newRow("inside") << text("a.desktop-b.desktop") << text("a-b");
    QTest::newRow("other case") << text("foo.Desktop") << text("foo.Desktop");
    QTest::newRow("none") << text("foo") << text("foo");
    QTest::newRow("nothing else") << text(".desktop") << QString();
    QTest::newRow("empty") << QString() << QString();
}

void ApplicationItemTest::applicationIds()
{
    QFETCH(QString, fileId);
    QTEST(applicationId(fileId), "id");
}

void ApplicationItemTest::locatesDesktopFiles_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QByteArray>("file"); // empty for none
    const auto row = [](const char *id, const char *file) { QTest::newRow(id) << text(id) << QByteArray(file); };
    row("plain", "user/plain.desktop");
    row("system", "first/system.desktop");
    row("with-dash", "first/with-dash.desktop");
    row("sub-app", "first/sub/app.desktop");
    row("sub-deep-app", "first/sub/deep/app.desktop");
    row("sub-deep-other", "first/sub/deep-other.desktop");
    row("two-parts-app", "first/two-parts/app.desktop");
    row("some-of-user",
        "first/some-of-user.desktop"); // the id without changes, before dashes are tried as folders
    row("own-app", "user/own/app.desktop"); // the user's first
    row("loop-app", ""); // a dash is not tried as a link
    row("loop-loop-app", "");
    row("missing", "");
    row("", "");
    row("sub/app", "first/sub/app.desktop");
    row("sub/deep/app", "first/sub/deep/app.desktop");
    row("own/app", "user/own/app.desktop");
    row("loop/app", "first/loop/app.desktop");
    row("sub/deep-app", ""); // only an id without a slash has dashes for slashes
    row("sub-deep/app", "");
    row("../outside", "");
    row("..", "");
    row("sub/../../outside", "");
    row("sub/../app", "");
    row("sub/..-../outside", "");
    row("..-outside", "");
    row("sub-..-..-outside", "");
    row(".-plain", "");
    row("-plain", "");
    row("directory", "");
}

void ApplicationItemTest::locatesDesktopFiles()
{
    QFETCH(QString, id);
    QFETCH(QByteArray, file);
    const Applications applications;
    for (const char *name :
         {"user/plain.desktop", "first/plain.desktop", "first/system.desktop", "first/with-dash.desktop",
          "first/with/dash.desktop", "first/sub/app.desktop", "first/sub/deep/app.desktop",
          "first/sub/deep-other.desktop", "outside.desktop", "user/../outside.desktop",
          "first/directory.desktop/x.desktop", "first/two-parts/app.desktop", "first/some-of-user.desktop",
          "user/some/of-user.desktop", "user/own/app.desktop", "first/own/app.desktop", "first/...desktop",
          "first/../outside.desktop"}) {
        applications.write(name, application("App"));
    }
    QVERIFY(QFile::link(applications.path("first/"), applications.path("first/loop")));
    applications.write("first/app.desktop", application("App"));
    QCOMPARE(locateDesktopFile(id), file.isEmpty() ? QString() : applications.path(file.constData()));
}

void ApplicationItemTest::idList()
{
    IdList list(path("a/b/a"));
    QVERIFY(list.contains(text("a")));
    QVERIFY(!list.contains(text("A")));
    list.append(text("c"));
    QCOMPARE(list.ids(), path("a/b/a/c"));
    QVERIFY(list.contains(text("c")));
    list.removeAll(text("a"));
    QCOMPARE(list.ids(), path("b/c"));
    QVERIFY(!list.contains(text("a")));
    QVERIFY(!IdList().contains(QString()));
}

QTEST_GUILESS_MAIN(ApplicationItemTest)
#include "tst_applicationitem.moc"
