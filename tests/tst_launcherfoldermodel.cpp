// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QAbstractItemModelTester>
#include <QFile>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

// The rows of a new model and their order. tst_launcherfollowing tests changes of the files.
class LauncherFolderModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsApplications_data();
    void listsApplications();
    void readsAnItem();
    void isSandboxed_data();
    void isSandboxed();
    void dBusServiceName_data();
    void dBusServiceName();
    void namesFilesByTheirPath();
    void prefersTheFirstDirectory();
    void hidesLaterFiles_data();
    void hidesLaterFiles();
    void sorts_data();
    void sorts();
    void returnsNothingForOtherRows();
    void followsTheOrderOfTheMenu_data();
    void followsTheOrderOfTheMenu();
    void keepsTheOrderOfABrokenMenu_data();
    void keepsTheOrderOfABrokenMenu();
    void loadsTheMenuAgain();
    void loadsAnEqualMenuWithoutReset();
};

void LauncherFolderModelTest::init()
{
    qputenv("LANGUAGE", "C");
}

void LauncherFolderModelTest::listsApplications_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("listed");

    QTest::newRow("application") << application("A") << text("A");
    QTest::newRow("explicitly shown") << application("A", "NoDisplay=false\nHidden=false\n") << text("A");
    QTest::newRow("NoDisplay") << application("A", "NoDisplay=true\n") << text("");
    QTest::newRow("Hidden") << application("A", "Hidden=true\n") << text("");
    QTest::newRow("link") << QByteArrayLiteral("[Desktop Entry]\nType=Link\nName=A\n") << text("");
    QTest::newRow("no type") << QByteArrayLiteral("[Desktop Entry]\nName=A\n") << text("");
    QTest::newRow("no name") << QByteArrayLiteral("[Desktop Entry]\nType=Application\n") << text("");
    QTest::newRow("empty") << QByteArray() << text("");
}

void LauncherFolderModelTest::listsApplications()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, listed);
    const Applications applications;
    applications.write("first/a.desktop", content);
    applications.write("first/b.txt", application("B"));
    QCOMPARE(rows(LauncherFolderModel()), listed);
}

void LauncherFolderModelTest::readsAnItem()
{
    const Applications applications;
    applications.write("first/a.desktop", application("Plain", "Name[de]=Deutsch\nIcon=picture\n"
                                                               "[X-Zephra-Application]\nIconMode=crop\n"));
    qputenv("LANGUAGE", "de");
    const LauncherFolderModel model;
    QCOMPARE(model.itemCount(), 1);
    const LauncherItem *item = itemAt(model, 0);
    QVERIFY(item->isValid());
    QCOMPARE(item->title(), text("Deutsch"));
    QCOMPARE(item->iconId(), text("picture"));
    QCOMPARE(item->filePath(), applications.path("first/a.desktop"));
    QCOMPARE(item->fileID(), text("a.desktop"));
    QCOMPARE(item->readValue(text("IconMode"), text("X-Zephra-Application")), text("crop"));
    QCOMPARE(item->readValue(text("Name")), text("Plain"));
    QVERIFY(item->readValue(text("IconMode"), text("X-Other")).isEmpty());
    QVERIFY(item->readValue(text("Other"), text("X-Zephra-Application")).isEmpty());
}

void LauncherFolderModelTest::isSandboxed_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<bool>("sandboxed");

    QTest::newRow("no group") << QByteArrayLiteral("Sandboxing=Enabled\n") << false;
    QTest::newRow("X-Tarnhold") << QByteArrayLiteral("[X-Tarnhold]\n") << true;
    QTest::newRow("X-Application") << QByteArrayLiteral("[X-Application]\nPermissions=A\n") << true;
    QTest::newRow("disabled") << QByteArrayLiteral("[X-Tarnhold]\nSandboxing=Disabled\n") << false;
    QTest::newRow("X-Application disabled")
        << QByteArrayLiteral("[X-Application]\nSandboxing=Disabled\n") << false;
    QTest::newRow("other value") << QByteArrayLiteral("[X-Tarnhold]\nSandboxing=disabled\n") << true;
    QTest::newRow("both disabled") << QByteArrayLiteral(
        "[X-Tarnhold]\nSandboxing=Disabled\n[X-Application]\nSandboxing=Disabled\n")
                                   << false;
    QTest::newRow("one disabled") << QByteArrayLiteral("[X-Tarnhold]\nSandboxing=Disabled\n[X-Application]\n")
                                  << true;
}

void LauncherFolderModelTest::isSandboxed()
{
    QFETCH(QByteArray, lines);
    QFETCH(bool, sandboxed);
    const Applications applications;
    applications.write("first/a.desktop", application("A", lines));
    const LauncherFolderModel model;
    QCOMPARE(itemAt(model, 0)->isSandboxed(), sandboxed);
}

void LauncherFolderModelTest::dBusServiceName_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("name");

    QTest::newRow("none") << QByteArray() << text("");
    QTest::newRow("given") << QByteArrayLiteral("X-DBus-ServiceName=org.example.b\n") << text("org.example.b");
    QTest::newRow("activatable") << QByteArrayLiteral("DBusActivatable=true\n") << text("org.example.a");
    QTest::newRow("not activatable") << QByteArrayLiteral("DBusActivatable=false\n") << text("");
    QTest::newRow("both") << QByteArrayLiteral("DBusActivatable=true\nX-DBus-ServiceName=b.b\n") << text("b.b");
}

void LauncherFolderModelTest::dBusServiceName()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, name);
    const Applications applications;
    applications.write("first/org.example.a.desktop", application("A", lines));
    const LauncherFolderModel model;
    QCOMPARE(itemAt(model, 0)->dBusServiceName(), name);
}

void LauncherFolderModelTest::namesFilesByTheirPath()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/sub/b.desktop", application("B"));
    applications.write("first/sub-c/deep er/c.desktop", application("C"));
    applications.write("first/d.desktop/d.desktop", application("D"));
    applications.write("first/e/e.desktop", application("hidden by the next"));
    applications.write("first/e-e.desktop", application("E"));
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A B C D E"));
    QCOMPARE(fileIds(model),
             (QStringList{text("a.desktop"), text("sub-b.desktop"), text("sub-c-deep er-c.desktop"),
                          text("d.desktop-d.desktop"), text("e-e.desktop")}));
}

void LauncherFolderModelTest::prefersTheFirstDirectory()
{
    const Applications applications;
    applications.write("user/a.desktop", application("User"));
    applications.write("first/a.desktop", application("First"));
    applications.write("second/a.desktop", application("Second"));
    applications.write("first/x-b.desktop", application("FirstB"));
    applications.write("second/x/b.desktop", application("SecondB"));
    applications.write("second/c.desktop", application("SecondC"));
    QCOMPARE(rows(LauncherFolderModel()), text("FirstB SecondC User"));
}

void LauncherFolderModelTest::hidesLaterFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("Hidden") << QByteArrayLiteral("[Desktop Entry]\nHidden=true\n");
    QTest::newRow("NoDisplay") << application("A", "NoDisplay=true\n");
    QTest::newRow("link") << QByteArrayLiteral("[Desktop Entry]\nType=Link\nName=A\n");
    QTest::newRow("empty") << QByteArray();
}

void LauncherFolderModelTest::hidesLaterFiles()
{
    QFETCH(QByteArray, content);
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("user/a.desktop", content);
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text(""));
    applications.remove("user/a.desktop");
    QTRY_COMPARE(rows(model), text("A"));
    applications.write("user/a.desktop", content);
    QTRY_COMPARE(rows(model), text(""));
}

void LauncherFolderModelTest::sorts_data()
{
    QTest::addColumn<QByteArrayList>("names");
    QTest::addColumn<QStringList>("order");

    QTest::newRow("case") << QByteArrayList{"b", "C", "a", "D"}
                          << QStringList{text("2"), text("0"), text("1"), text("3")};
    QTest::newRow("equal") << QByteArrayList{"b", "B", "A", "a"}
                           << QStringList{text("2"), text("3"), text("0"), text("1")};
    QTest::newRow("prefix") << QByteArrayList{"aa", "a"} << QStringList{text("1"), text("0")};
}

void LauncherFolderModelTest::sorts()
{
    QFETCH(QByteArrayList, names);
    QFETCH(QStringList, order);
    const Applications applications;
    for (int i = 0; i < names.size(); ++i) {
        applications.write(qPrintable(text("first/%1.desktop").arg(i)), application(names.at(i)));
    }
    order.replaceInStrings(QRegularExpression(text("$")), text(".desktop"));
    QCOMPARE(fileIds(LauncherFolderModel()), order);
}

void LauncherFolderModelTest::returnsNothingForOtherRows()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    applications.writeMenu("<Menu><Menu><Name>F</Name><Filename>b.desktop</Filename></Menu></Menu>");
    const LauncherFolderModel model;
    QCOMPARE(model.roleNames().value(LauncherFolderItem::ObjectRole), QByteArrayLiteral("object"));
    QCOMPARE(model.index(0).data().toString(), text("F"));
    QCOMPARE(model.index(1).data().toString(), text("A"));
    QCOMPARE(model.index(1).data(LauncherFolderItem::ObjectRole).value<QObject *>(), model.get(1));
    QVERIFY(!model.index(1).data(Qt::DecorationRole).isValid());
    QCOMPARE(model.rowCount(model.index(0)), 0);
    for (const int row : {-1, 2, 1000000}) {
        QVERIFY(!model.get(row));
        QVERIFY(!model.data(model.index(row), LauncherFolderItem::ObjectRole).isValid());
    }
}

void LauncherFolderModelTest::followsTheOrderOfTheMenu_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<QString>("arranged");

    const auto row = [](const char *name, const QByteArray &menu, const char *arranged) {
        QTest::newRow(name) << menu << text(arranged);
    };
    const QByteArray c = "<Filename>c.desktop</Filename>";
    const QByteArray b = "<Filename>b.desktop</Filename>";
    row("empty", "<Menu/>", "A B C");
    row("order", "<Menu>" + c + b + "</Menu>", "C B A");
    row("folder", "<Menu>" + c + "<Menu><Name>F</Name>" + b + "</Menu></Menu>", "C F{B} A");
    row("folder first", "<Menu><Menu>" + b + "<Name>F</Name></Menu>" + c + "</Menu>", "F{B} C A");
    row("order in a folder", "<Menu><Menu><Name>F</Name>" + c + b + "</Menu></Menu>", "F{C B} A");
    row("empty folder", "<Menu><Menu><Name>F</Name></Menu></Menu>", "F{} A B C");
    row("nameless folder", "<Menu><Menu>" + b + "</Menu></Menu>", "{B} A C");
    row("folders in folders",
        "<Menu><Menu><Name>F</Name><Menu><Name>G</Name>" + c + "</Menu>" + b
            + "</Menu><Menu><Name>H</Name></Menu></Menu>",
        "F{G{C} B} H{} A");
    row("long comment", "<Menu><!--" + QByteArray(50 << 10, 'x') + "-->" + c + "</Menu>", "C A B");
    row("unknown files", "<Menu><Filename>x.desktop</Filename>" + c + "<Filename/></Menu>", "C A B");
    row("twice", "<Menu>" + c + "<Menu><Name>F</Name>" + c + b + "</Menu>" + b + "</Menu>", "C F{B} A");
    row("other elements",
        "<Menu><Name>Root</Name><Include><Filename>b.desktop</Filename></Include>" + c + "</Menu>", "C A B");
    row("blanks", "<Menu>\n<Filename>\n c.desktop\n</Filename></Menu>", "C A B");
    row("document type",
        "<?xml version=\"1.0\"?><!DOCTYPE Menu PUBLIC \"-//freedesktop//DTD Menu 1.0//EN\" \"menu-1.0.dtd\">"
        "<Menu>"
            + c + "</Menu>",
        "C A B");
}

void LauncherFolderModelTest::followsTheOrderOfTheMenu()
{
    QFETCH(QByteArray, menu);
    QFETCH(QString, arranged);
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    applications.write("first/c.desktop", application("C"));
    applications.writeMenu(menu);
    LauncherFolderModel model;
    QCOMPARE(model.configFile(), applications.menuFile());
    QCOMPARE(rows(model), arranged);
    // load() has the same result.
    applications.remove("config/menus/kavari-applications.menu");
    model.load();
    QCOMPARE(rows(model), text("A B C"));
    applications.writeMenu(menu);
    model.load();
    QCOMPARE(rows(model), arranged);
}

void LauncherFolderModelTest::keepsTheOrderOfABrokenMenu_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<QString>("reason");

    const QByteArray filename = "<Filename>a.desktop</Filename>";
    QTest::newRow("empty") << QByteArray() << text("line 1: Premature end of document.");
    QTest::newRow("cut off") << QByteArray("<Menu>" + filename) << text("line 1: Premature end of document.");
    QTest::newRow("other document") << QByteArrayLiteral("<html/>") << text("line 1: not a menu");
    QTest::newRow("entity") << QByteArrayLiteral(
        "<!DOCTYPE Menu [<!ENTITY a \"aaaa\">]>\n<Menu><Filename>&a;</Filename></Menu>")
                            << text("line 1: declarations are not allowed");
    QTest::newRow("default attributes")
        << QByteArrayLiteral("<!DOCTYPE Menu [<!ATTLIST Menu a CDATA \"b\">]>\n<Menu/>")
        << text("line 1: declarations are not allowed");
    QTest::newRow("expanding") << QByteArray("<!DOCTYPE Menu [<!ENTITY % a \"<!--" + QByteArray(4000, 'x')
                                             + "-->\">" + QByteArray("%a;").repeated(300000) + "]>\n<Menu/>")
                               << text("larger than 65536 bytes");
    QByteArray attributes;
    for (int i = 0; i < 100000; ++i) {
        attributes += " a" + QByteArray::number(i) + "=''";
    }
    QTest::newRow("attributes") << QByteArray("<Menu" + attributes + "/>") << text("larger than 65536 bytes");
    QTest::newRow("huge") << QByteArray("<Menu>" + filename + QByteArray(64 * 1024, ' ') + "</Menu>")
                          << text("larger than 65536 bytes");
}

void LauncherFolderModelTest::keepsTheOrderOfABrokenMenu()
{
    QFETCH(QByteArray, menu);
    QFETCH(QString, reason);
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    applications.writeMenu("<Menu><Filename>b.desktop</Filename></Menu>");
    LauncherFolderModel model;
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    applications.writeMenu(menu);
    const QString warning
        = text("LauncherFolderModel: cannot read \"%1\": %2").arg(applications.menuFile(), reason);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    model.load();
    QCOMPARE(rows(model), text("B A"));
    QCOMPARE(resets.count(), 0);
}

void LauncherFolderModelTest::loadsTheMenuAgain()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    applications.writeMenu("<Menu><Menu><Name>F</Name><Filename>b.desktop</Filename></Menu></Menu>");
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const QPointer<QObject> folder = model.get(0);
    const QPointer<LauncherItem> a = itemAt(model, 1);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);

    applications.writeMenu("<Menu><Menu><Name>G</Name><Filename>a.desktop</Filename></Menu></Menu>");
    QCOMPARE(rows(model), text("F{B} A"));
    model.load();
    QCOMPARE(rows(model), text("G{A} B"));
    QCOMPARE(resets.count(), 1);
    QTRY_VERIFY(!folder);
    const auto *newFolder = qobject_cast<LauncherFolderItem *>(model.get(0));
    QCOMPARE(itemAt(*newFolder, 0), a.data());
}

void LauncherFolderModelTest::loadsAnEqualMenuWithoutReset()
{
    const Applications applications;
    applications.writeMenu("<Menu><Menu><Name>F</Name><Filename>b.desktop</Filename></Menu></Menu>");
    LauncherFolderModel model;
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.load();
    QCOMPARE(resets.count(), 0);
}

QTEST_GUILESS_MAIN(LauncherFolderModelTest)
#include "tst_launcherfoldermodel.moc"
