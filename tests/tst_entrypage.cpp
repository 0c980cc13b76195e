// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "messagelog.h"
#include "propertylog.h"
#include "registry/pluginregistry.h"
#include "testsize.h"
#include "text.h"
#include "toolkit/entrypagecontent.h"
#include "world.h"

#include <QCoreApplication>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlIncubationController>
#include <QQuickItem>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <functional>
#include <iterator>
#include <memory>

namespace
{
const char s_uri[] = "com.velka.settings.toolkit";
const QString s_file = QStringLiteral("sound.json");
const QString s_path = QStringLiteral("sound/volume");

PluginRegistry *registry()
{
    return PluginRegistry::instance();
}

QByteArray entry(const QString &source, const char *title = "Volume")
{
    return R"({"path": "sound/volume", "type": "page", "title": ")" + QByteArray(title)
           + R"(", "params": {"source": ")" + source.toUtf8() + R"("}})";
}

void install(const QString &file, const QByteArray &entry)
{
    World::writeEntries(file, R"({"entries": [)" + entry + "]}");
    World::rescan(registry());
}

void uninstall(const QString &file)
{
    World::removeEntries(file);
    World::rescan(registry());
}

/// Loads another version of a file in one batch.
void reload(const QString &file, const QByteArray &entry)
{
    registry()->removeEntriesForFile(file);
    World::writeEntries(file, R"({"entries": [)" + entry + "]}");
    registry()->addEntriesForFile(file);
    Q_EMIT registry()->contentChanged();
}

QVariantMap error(const QString &text, const QString &file, int line, int column)
{
    return {{QStringLiteral("text"), text},
            {QStringLiteral("file"), file},
            {QStringLiteral("line"), line},
            {QStringLiteral("column"), column}};
}

QString warning(const QVariantMap &error)
{
    const QString place
        = QStringLiteral("%1:%2").arg(error.value(text("file")).toString()).arg(error.value(text("line")).toInt());
    const QString reason = error.value(text("text")).toString().replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QStringLiteral("warning org.orvantaos.settings.framework: %1 \"%2\" \"%3: %4\"")
        .arg(QLatin1String(Messages::CannotShowPage), s_path, place, reason);
}
}

/// A host with pages, which QML knows as "host".
class EntryPageTest : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void setPath(const QString &path)
    {
        m_page->setProperty("path", path);
    }

public Q_SLOTS:
    void deletePage()
    {
        m_page.reset();
    }

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

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
    void hasNothingToShow();
    void otherPathLoadsAnotherPage();
    void pageMayThrow();
    void pageMayBeDeleted();
    void mayBeDeletedWhileLoading_data();
    void mayBeDeletedWhileLoading();
    void pageMayChangeItsHost_data();
    void pageMayChangeItsHost();
    void handlersMayDeleteIt_data();
    void handlersMayDeleteIt();
    void randomUse();

private:
    QString write(const QString &name, const QByteArray &qml) const;
    void open(const QString &path = s_path);
    EntryPageContent *content() const;
    EntryPageContent::Status status() const;
    QQuickItem *item() const;
    QVariantList errors() const;

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<QQmlEngine> m_engine;
    QQmlIncubationController m_controller;
    std::unique_ptr<QQuickItem> m_page;
};

void EntryPageTest::initTestCase()
{
    qmlRegisterType<EntryPageContent>(s_uri, 1, 0, "EntryPageContent");
    qmlRegisterType(QUrl::fromLocalFile(text(ENTRYPAGE_QML)), s_uri, 1, 0, "EntryPage");
    qmlRegisterType<SettingsEntry>(s_uri, 1, 0, "SettingsEntry");
    World::writeBlacklist("[]");
}

void EntryPageTest::init()
{
    World::setMasked({});
    World::removeEntries(s_file);
    World::rescan(registry());
    m_directory = std::make_unique<QTemporaryDir>();
    m_engine = std::make_unique<QQmlEngine>();
    m_engine->rootContext()->setContextProperty(text("host"), this);
}

void EntryPageTest::cleanup()
{
    m_page.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // Qt deletes unfinished pages later
    m_engine.reset();
}

/// Writes a page and returns its path.
QString EntryPageTest::write(const QString &name, const QByteArray &qml) const
{
    const QString path = m_directory->filePath(name);
    World::writeFile(path, qml);
    return path;
}

void EntryPageTest::open(const QString &path)
{
    QQmlComponent component(m_engine.get());
    component.setData("import QtQuick 2.15\nimport com.velka.settings.toolkit 1.0\n"
                      "EntryPage { id: hostPage; width: 200; height: 100 }",
                      QUrl());
    m_page.reset(qobject_cast<QQuickItem *>(component.create()));
    QVERIFY2(m_page, qPrintable(component.errorString()));
    setPath(path);
}

EntryPageContent *EntryPageTest::content() const
{
    return m_page->findChild<EntryPageContent *>();
}

EntryPageContent::Status EntryPageTest::status() const
{
    return EntryPageContent::Status(m_page->property("status").toInt());
}

QQuickItem *EntryPageTest::item() const
{
    return qobject_cast<QQuickItem *>(m_page->property("item").value<QObject *>());
}

QVariantList EntryPageTest::errors() const
{
    return m_page->property("errors").toList();
}

void EntryPageTest::loadsThePage()
{
    install(s_file, entry(write(text("page.qml"), "import QtQuick 2.15\nItem { objectName: 'page' }")));
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
    install(s_file,
            entry(write(text("page.qml"), "import QtQuick 2.15\nimport com.velka.settings.toolkit 1.0\nItem {"
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
    install(s_file, entry(write(text("page.qml"),
                                "import QtQuick 2.15\nItem { property string shown: typeof hostPage }")));
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->property("shown").toString(), text("undefined"));
}

void EntryPageTest::pageIsAsLargeAsItsHost()
{
    install(s_file, entry(write(text("page.qml"), R"(
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
    install(s_file, entry(prefix + write(name, "import QtQuick 2.15\nItem {}")));
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
    install(s_file, R"({"path": "sound/volume", "params": )" + params + "}");
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
    install(s_file, entry(file));
    const MessageLog log;
    open();
    QTRY_COMPARE(status(), EntryPageContent::Error);
    QVERIFY(!item());
    const QVariantMap first = errors().value(0).toMap();
    QVERIFY2(first.value(text("text")).toString().startsWith(description),
             qPrintable(first.value(text("text")).toString()));
    QCOMPARE(first, error(first.value(text("text")).toString(), file, line, column));
    QCOMPARE(MessageLog::take(), QStringList{warning(first)});
    reload(s_file, entry(write(text("right.qml"), "import QtQuick 2.15\nItem {}")));
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(errors(), QVariantList());
    QCOMPARE(MessageLog::take(), QStringList());
}

void EntryPageTest::followsTheEntry()
{
    const QString first = write(text("first.qml"), "import QtQuick 2.15\nItem { property var entry }");
    const QString second = write(text("second.qml"), "import QtQuick 2.15\nItem { objectName: 'second' }");
    install(s_file, entry(first));
    open();
    PropertyLog log(content(), EntryPageContent::staticMetaObject);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    const QPointer<QQuickItem> shown = item();
    uninstall(s_file);
    QCOMPARE(status(), EntryPageContent::Gone);
    QVERIFY(!item());
    QTRY_VERIFY(!shown);
    install(s_file, entry(second));
    QCOMPARE(status(), EntryPageContent::Loading);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->objectName(), text("second"));
    World::setMasked({s_path});
    QCOMPARE(status(), EntryPageContent::Gone);
    World::setMasked({});
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    reload(s_file, entry(first));
    QCOMPARE(status(), EntryPageContent::Loading);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QVERIFY(log.isRight());
}

void EntryPageTest::keepsThePageWhileItsFileIsTheSame()
{
    const QString file = write(text("page.qml"), "import QtQuick 2.15\nItem { property var entry }");
    install(s_file, entry(file));
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    PropertyLog log(content(), EntryPageContent::staticMetaObject);
    const QPointer<QQuickItem> shown = item();
    reload(s_file, entry(file, "Loudness"));
    QCoreApplication::processEvents();
    QCOMPARE(item(), shown.data());
    QCOMPARE(shown->property("entry").value<SettingsEntry *>()->title(), text("Loudness"));
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
    install(s_file, entry(file) + R"(, {"path": "other", "params": {"source": ")" + file.toUtf8() + "\"}}");
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    const QPointer<QQuickItem> shown = item();
    setPath(text("other"));
    QCOMPARE(shown->property("entry").value<SettingsEntry *>()->path(), s_path); // while it is being deleted
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(item()->property("entry").value<SettingsEntry *>()->path(), text("other"));
    QTRY_VERIFY(!shown);
}

void EntryPageTest::pageMayThrow()
{
    install(s_file,
            entry(write(
                text("page.qml"),
                "import QtQuick 2.15\nItem { width: none; Component.onCompleted: { throw new Error('x') } }")));
    const MessageLog log;
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(MessageLog::take().size(), 2); // Qt reports each
    QCOMPARE(item()->size(), QSizeF(200, 100));
}

void EntryPageTest::pageMayBeDeleted()
{
    const QString file = write(text("page.qml"), "import QtQuick 2.15\nItem {}");
    install(s_file, entry(file));
    open();
    PropertyLog properties(content(), EntryPageContent::staticMetaObject);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    const MessageLog log;
    delete item();
    QCOMPARE(status(), EntryPageContent::Error);
    QVERIFY(!item());
    const QVariantMap deletion = error(text(Messages::PageIsDeleted), file, 0, 0);
    QCOMPARE(errors(), QVariantList{deletion});
    QCOMPARE(MessageLog::take(), QStringList{warning(deletion)});
    QVERIFY(properties.isRight());
    m_page->setWidth(10);
    uninstall(s_file);
    install(s_file, entry(file));
    QTRY_COMPARE(status(), EntryPageContent::Ready);
}

void EntryPageTest::mayBeDeletedWhileLoading_data()
{
    QTest::addColumn<int>("steps");
    for (int steps : {0, 1, 2, 3, 5, 10, 100}) {
        QTest::addRow("%d steps", steps) << steps;
    }
}

void EntryPageTest::mayBeDeletedWhileLoading()
{
    QFETCH(int, steps);
    m_engine->setIncubationController(&m_controller);
    install(s_file, entry(write(text("page.qml"),
                                "import QtQuick 2.15\nItem { Repeater { model: 50; Item { Item {} } } }")));
    open();
    if (steps > 0) {
        QTRY_COMPARE(m_controller.incubatingObjectCount(), 1);
    }
    std::atomic<bool> goesOn{false}; // one object at a time
    for (int i = 0; i < steps; ++i) {
        m_controller.incubateWhile(&goesOn);
    }
    QCOMPARE(status(), EntryPageContent::Loading);
    m_page.reset();
    QTRY_COMPARE(m_controller.incubatingObjectCount(), 0);
    m_engine->setIncubationController(nullptr);
}

void EntryPageTest::pageMayChangeItsHost_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<bool>("isAsynchronous");
    for (bool isAsynchronous : {false, true}) {
        for (const char *call : {"host.deletePage()", "host.setPath('')", "host.setPath('other')"}) {
            QTest::addRow("%s, %s", call, isAsynchronous ? "asynchronous" : "synchronous")
                << QByteArray(call) << isAsynchronous;
        }
    }
}

void EntryPageTest::pageMayChangeItsHost()
{
    QFETCH(QByteArray, call);
    QFETCH(bool, isAsynchronous);
    if (isAsynchronous) {
        m_engine->setIncubationController(&m_controller);
    }
    const QString other = write(text("other.qml"), "import QtQuick 2.15\nItem { objectName: 'other' }");
    const QString page = write(text("page.qml"),
                               "import QtQuick 2.15\nItem { Item { Component.onCompleted: " + call + " } }");
    install(s_file, entry(page) + R"(, {"path": "other", "params": {"source": ")" + other.toUtf8() + "\"}}");
    open();
    const auto isDone = [this] {
        m_controller.incubateFor(1000);
        const bool isOther = m_page && item() && item()->objectName() == text("other");
        return !m_page || status() == EntryPageContent::Null || isOther;
    };
    QTRY_VERIFY(isDone());
    m_engine->setIncubationController(nullptr);
}

void EntryPageTest::handlersMayDeleteIt_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("path") << QByteArray(SIGNAL(pathChanged()));
    QTest::newRow("status") << QByteArray(SIGNAL(statusChanged()));
    QTest::newRow("item") << QByteArray(SIGNAL(itemChanged()));
    QTest::newRow("errors") << QByteArray(SIGNAL(errorsChanged()));
}

void EntryPageTest::handlersMayDeleteIt()
{
    QFETCH(QByteArray, signal);
    install(s_file, entry(write(text("page.qml"), "import QtQuick 2.15\nItem {}")));
    open(QString());
    QVERIFY(connect(content(), signal.constData(), this, SLOT(deletePage())));
    setPath(s_path);
    QTRY_VERIFY(!m_page || status() == EntryPageContent::Ready);
    if (m_page) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text(Messages::CannotShowPage)));
        reload(s_file, entry(text("none")));
    }
    QVERIFY(!m_page);
}

void EntryPageTest::randomUse()
{
    const QStringList sources{write(text("page.qml"), "import QtQuick 2.15\nItem { property var entry }"),
                              write(text("other.qml"), "import QtQuick 2.15\nItem {}"),
                              write(text("broken.qml"), "import QtQuick 2.15\nItem {"), text("none")};
    const QStringList paths{s_path, text("sound"), QString()};
    m_engine->setIncubationController(&m_controller);
    const MessageLog log;
    QRandomGenerator random(5);
    open();
    PropertyLog properties(content(), EntryPageContent::staticMetaObject);
    const auto source = [&] { return sources.at(random.bounded(sources.size())); };
    const std::function<void()> steps[] = {
        [&] { uninstall(s_file); },
        [&] { install(s_file, entry(source())); },
        [&] { reload(s_file, entry(source())); },
        [&] { setPath(paths.at(random.bounded(paths.size()))); },
        [&] { delete item(); },
        [&] { QCoreApplication::processEvents(); },
        [&] { m_controller.incubateFor(1); },
    };
    for (int i = 0; i < testSize(20000); ++i) {
        steps[random.bounded(int(std::size(steps)))]();
        QVERIFY(properties.isRight());
        QCOMPARE(item() != nullptr, status() == EntryPageContent::Ready);
        QCOMPARE(errors().isEmpty(), status() != EntryPageContent::Error);
    }
    m_engine->setIncubationController(nullptr);
}

QTEST_MAIN(EntryPageTest)

#include "tst_entrypage.moc"
