// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "entrypagehost.h"
#include "messagelog.h"
#include "propertylog.h"
#include "text.h"
#include "toolkit/settingsentry.h"
#include "world.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTest>

class EntryPageTest : public EntryPageHost
{
    Q_OBJECT

private Q_SLOTS:
    void loadsThePage();
    void givesTheEntry_data();
    void givesTheEntry();
    void pageSeesNothingOfTheHost();
    void pageIsAsLargeAsItsHost();
    void takesAnyFileName_data();
    void takesAnyFileName();
    void refusesOtherSources_data();
    void refusesOtherSources();
    void reportsErrors_data();
    void reportsErrors();
    void followsTheEntry();
    void keepsThePageWhileItsFileIsTheSame();
    void keepsThePageOfAnotherType();
    void hasNothingToShow();
    void otherPathLoadsAnotherPage();
};

void EntryPageTest::loadsThePage()
{
    install(entry(write(text("page.qml"), "import QtQuick 2.15\nItem { objectName: 'page' }")));
    open(QString());
    PropertyLog log(content(), EntryPageContent::staticMetaObject);
    setPath(s_path);
    QCOMPARE(status(), EntryPageContent::Loading);
    QVERIFY(!item());
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->objectName(), text("page"));
    QCOMPARE(item()->parentItem(), m_page.get());
    QCOMPARE(content()->entry()->title(), text("Volume"));
    QCOMPARE(errors(), QVariantList());
    QVERIFY(m_page->isFocusScope());
    QCOMPARE(log.take(), QStringList({text("path"), text("status"), text("item"), text("status")}));
    setPath(s_path);
    setPath(text("/sound//volume"));
    QCOMPARE(log.take(), QStringList{text("path")});
    QVERIFY(log.isRight());
}

void EntryPageTest::givesTheEntry_data()
{
    QTest::addColumn<QByteArray>("declaration");
    QTest::addColumn<QString>("shown");
    const QByteArray shown = "property string shown: entry.path + ' ' + entry.title + ' ' + entry.favoritesKey";
    const QString wanted = text("sound/volume Volume /test/favorites");
    QTest::newRow("SettingsEntry") << "property SettingsEntry entry\n" + shown << wanted;
    QTest::newRow("QtObject") << "property QtObject entry\n" + shown << wanted;
    QTest::newRow("var") << "property var entry\n" + shown << wanted;
    QTest::newRow("required") << "required property SettingsEntry entry\n" + shown << wanted;
    QTest::newRow("required var") << "required property var entry\n" + shown << wanted;
    QTest::newRow("when completed") << QByteArray(
        "property var entry\nproperty string shown\nComponent.onCompleted: shown = entry.path")
                                    << s_path;
    QTest::newRow("none") << QByteArray("property string shown: typeof entry") << text("undefined");
}

void EntryPageTest::givesTheEntry()
{
    QFETCH(QByteArray, declaration);
    QFETCH(QString, shown);
    const MessageLog log;
    install(entry(write(text("page.qml"), "import QtQuick 2.15\nimport com.velka.settings.toolkit 1.0\nItem {"
                                              + declaration + "}")));
    open(QString());
    content()->entry()->setFavoritesKey(text("/test/favorites"));
    setPath(s_path);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->property("shown").toString(), shown);
    QCOMPARE(MessageLog::take(), QStringList());
}

void EntryPageTest::pageSeesNothingOfTheHost()
{
    install(
        entry(write(text("page.qml"), "import QtQuick 2.15\nItem { property string shown: typeof hostPage }")));
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->property("shown").toString(), text("undefined"));
}

void EntryPageTest::pageIsAsLargeAsItsHost()
{
    install(entry(write(text("page.qml"), R"(
        import QtQuick 2.15
        Item {
            property real firstWidth
            implicitWidth: 30
            implicitHeight: 20
            width: 400
            Component.onCompleted: firstWidth = width
        })")));
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QQuickItem *const shown = item();
    QCOMPARE(shown->size(), QSizeF(200, 100));
    m_page->setWidth(500);
    QCOMPARE(shown->size(), QSizeF(500, 100));
    QCOMPARE(m_page->implicitWidth(), 30.0);
    shown->setImplicitHeight(25);
    QCOMPARE(m_page->implicitHeight(), 25.0);
}

void EntryPageTest::takesAnyFileName_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("name");
    QTest::newRow("characters of URLs") << QString() << text("a#b%20c?d ä.qml");
    QTest::newRow("two slashes") << text("/") << text("page.qml");
    QTest::newRow("dots") << text("/usr/..") << text("page.qml");
    QTest::newRow("other ending") << QString() << text("page.txt");
}

void EntryPageTest::takesAnyFileName()
{
    QFETCH(QString, prefix);
    QFETCH(QString, name);
    install(entry(prefix + write(name, "import QtQuick 2.15\nItem {}")));
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
}

void EntryPageTest::refusesOtherSources_data()
{
    QTest::addColumn<QByteArray>("params");
    QTest::addColumn<QString>("source");
    const auto row = [](const char *name, const QString &source) {
        QTest::newRow(name) << R"({"source": ")" + source.toUtf8() + "\"}" << source;
    };
    QTest::newRow("no params") << QByteArray("{}") << QString();
    QTest::newRow("number") << QByteArray(R"({"source": 1})") << text("1");
    QTest::newRow("list") << QByteArray(R"({"source": ["/page.qml"]})") << QString();
    row("empty", QString());
    row("relative", text("page.qml"));
    row("relative with dots", text("../page.qml"));
    row("file URL", text("file:///usr/share/page.qml"));
    row("resource", text("qrc:/qt-project.org/imports/QtQuick/page.qml"));
    row("path of a resource", text(":/page.qml"));
    row("http", text("http://localhost/page.qml"));
    row("missing", text("/usr/share/none.qml"));
    row("directory", text("/usr/share"));
    row("device", text("/dev/zero"));
}

void EntryPageTest::refusesOtherSources()
{
    QFETCH(QByteArray, params);
    QFETCH(QString, source);
    install(R"({"path": "sound/volume", "params": )" + params + "}");
    const MessageLog log;
    open();
    QCOMPARE(status(), EntryPageContent::Error);
    const QVariantMap refusal = error(QLatin1String(Messages::PageIsNoFile), source, 0, 0);
    QCOMPARE(errors(), QVariantList{refusal});
    QCOMPARE(MessageLog::take(), QStringList{warning(refusal)});
    World::setMasked({text("unrelated")});
    setPath(text("/sound/volume"));
    QCOMPARE(MessageLog::take(), QStringList());
}

void EntryPageTest::reportsErrors_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    const QByteArray head = "import QtQuick 2.15\n";
    QTest::newRow("syntax") << head + "Item {\n  width:\n}" << text("Expected token") << 4 << 1;
    QTest::newRow("type") << head + "Item {\n  None {}\n}" << text("None is not a type") << 3 << 3;
    QTest::newRow("module") << QByteArray("import None 1.0\nItem {}") << text("module \"None\" is not installed")
                            << 1 << 1;
    QTest::newRow("property") << head + "Item { none: 1 }"
                              << text("Cannot assign to non-existent property \"none\"") << 2 << 8;
    QTest::newRow("type of entry") << head + "Item { property int entry }" << text("Could not set property entry")
                                   << 0 << 0;
    QTest::newRow("required property") << head + "Item { required property int none }"
                                       << text("Required property none was not initialized") << 2 << 8;
    QTest::newRow("no Item") << head + "QtObject {}" << text(Messages::PageIsNoItem) << 0 << 0;
    QTest::newRow("no Item, with the entry")
        << head + "QtObject { property var entry }" << text(Messages::PageIsNoItem) << 0 << 0;
    QTest::newRow("empty") << QByteArray() << text("File is empty") << 0 << 0;
    QTest::newRow("binary") << QByteArray("\0\1\2\xff", 4) << text("Expected token") << 1 << 1;
}

void EntryPageTest::reportsErrors()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, description);
    QFETCH(int, line);
    QFETCH(int, column);
    const QString file = write(text("page.qml"), qml);
    install(entry(file));
    const MessageLog log;
    open();
    QTRY_COMPARE(status(), EntryPageContent::Error);
    QVERIFY(!item());
    const QVariantMap first = errors().value(0).toMap();
    QVERIFY2(first.value(text("text")).toString().startsWith(description),
             qPrintable(first.value(text("text")).toString()));
    QCOMPARE(first, error(first.value(text("text")).toString(), file, line, column));
    QCOMPARE(MessageLog::take(), QStringList{warning(first)});
    reload(entry(write(text("right.qml"), "import QtQuick 2.15\nItem {}")));
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(errors(), QVariantList());
    QCOMPARE(MessageLog::take(), QStringList());
}

void EntryPageTest::followsTheEntry()
{
    const QString first = write(text("first.qml"), "import QtQuick 2.15\nItem { property var entry }");
    const QString second = write(text("second.qml"), "import QtQuick 2.15\nItem { objectName: 'second' }");
    install(entry(first));
    open();
    PropertyLog log(content(), EntryPageContent::staticMetaObject);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    const QPointer<QQuickItem> shown = item();
    uninstall();
    QCOMPARE(status(), EntryPageContent::Gone);
    QVERIFY(!item());
    QTRY_VERIFY(!shown);
    install(entry(second));
    QCOMPARE(status(), EntryPageContent::Loading);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->objectName(), text("second"));
    World::setMasked({s_path});
    QCOMPARE(status(), EntryPageContent::Gone);
    World::setMasked({});
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    reload(entry(first));
    QCOMPARE(status(), EntryPageContent::Loading);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QVERIFY(log.isRight());
}

void EntryPageTest::keepsThePageWhileItsFileIsTheSame()
{
    const QString file = write(text("page.qml"), "import QtQuick 2.15\nItem { property var entry }");
    install(entry(file));
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    PropertyLog log(content(), EntryPageContent::staticMetaObject);
    const QPointer<QQuickItem> shown = item();
    reload(entry(file, "Loudness"));
    QCoreApplication::processEvents();
    QCOMPARE(item(), shown.data());
    QCOMPARE(shown->property("entry").value<SettingsEntry *>()->title(), text("Loudness"));
    QCOMPARE(log.take(), QStringList());
}

void EntryPageTest::keepsThePageOfAnotherType()
{
    const QByteArray page = entry(write(text("page.qml"), "import QtQuick 2.15\nItem {}"));
    install(page);
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    PropertyLog log(content(), EntryPageContent::staticMetaObject);
    const QPointer<QQuickItem> shown = item();
    reload(QByteArray(page).replace("\"page\"", "\"action\""));
    QCOMPARE(content()->entry()->type(), text("action"));
    QCoreApplication::processEvents();
    QCOMPARE(item(), shown.data());
    QCOMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(log.take(), QStringList());
}

void EntryPageTest::hasNothingToShow()
{
    const MessageLog log;
    open(QString());
    QCOMPARE(status(), EntryPageContent::Null);
    setPath(text("sound/none"));
    QCOMPARE(status(), EntryPageContent::Gone);
    setPath(text("/"));
    QCOMPARE(status(), EntryPageContent::Null);
    QCOMPARE(MessageLog::take(), QStringList());
}

void EntryPageTest::otherPathLoadsAnotherPage()
{
    const QString file = write(text("page.qml"), "import QtQuick 2.15\nItem { property var entry }");
    install(entry(file) + R"(, {"path": "other", "params": {"source": ")" + file.toUtf8() + "\"}}");
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    const QPointer<QQuickItem> shown = item();
    setPath(text("other"));
    QCOMPARE(shown->property("entry").value<SettingsEntry *>()->path(), s_path); // while it is being deleted
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->property("entry").value<SettingsEntry *>()->path(), text("other"));
    QTRY_VERIFY(!shown);
}

QTEST_MAIN(EntryPageTest)

#include "tst_entrypage.moc"
