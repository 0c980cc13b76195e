// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accessibletree.h"
#include "appearance.h"
#include "common/constants.h"
#include "common/messages.h"
#include "demowindow.h"
#include "messagelog.h"
#include "pluginregistry.h"
#include "qmlcall.h"
#include "text.h"
#include "windowinput.h"
#include "windowpictures.h"
#include "world.h"

#include <mgconfitem.h>

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QGuiApplication>
#include <QPointer>
#include <QProcess>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQmlIncubationController>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

namespace
{
const QStringList s_favorites{text("system_settings/connectivity/wlan"), text("system_settings/look"),
                              text("system_settings/look/display/brightness"),
                              text("system_settings/device/storage/free_space")};

bool copyFiles(const QString &from, const QString &pattern, const QString &to)
{
    const QStringList names = QDir(from).entryList({pattern}, QDir::Files);
    return std::all_of(names.cbegin(), names.cend(), [&](const QString &name) {
        return QFile::copy(QDir(from).filePath(name), QDir(to).filePath(name));
    });
}

/// Waits for the errors of calls to missing services. They arrive before the replies to these calls.
void waitForServices()
{
    for (const QDBusConnection &bus : {QDBusConnection::systemBus(), QDBusConnection::sessionBus()}) {
        bus.interface()->isServiceRegistered(text("org.example.None"));
    }
    QCoreApplication::processEvents();
}

QStringList stored()
{
    return MGConfItem(Constants::FavoritesKey).value().toStringList();
}
}

/// The demo can be used by keyboard alone, and read by a screen reader.
class DemoAccessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void arrowsMoveTheFocus();
    void returnOpensAPageAndEscapeGoesBack();
    void backKeysGoBack();
    void tabReachesTheControlsInSight();
    void spaceChangesAFavorite();
    void favoritesAreMovedAndRemoved();
    void pageWithoutControlsScrolls();
    void pagesOfARemovedEntryClose();
    void addressShowsARow();
    void otherProgramOpensAnAddress();
    void unknownAddressChangesNothing_data();
    void unknownAddressChangesNothing();
    void otherTreeComesAndGoes();
    void searchOpensAnEntry();
    void pagesAreRead_data();
    void pagesAreRead();

private:
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void openFromOutside(const QString &address);
    bool tabTo(const char *name);
    bool isAtRest() const;
    bool waitForRest();
    QString focused() const;
    QString focusedRow() const;
    QQuickItem *page() const;

    const QTemporaryDir m_packages;
    std::unique_ptr<DemoWindow> m_demo;
    QQuickWindow *m_window = nullptr;
};

void DemoAccessTest::initTestCase()
{
    setAppearance();
    setLocale(text("en_GB"));
    World::reset();
    const QString applications = QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    QVERIFY(QDir().mkpath(applications));
    QVERIFY(copyFiles(text(DEMO_APPLICATIONS), text("*.desktop"), applications));
    QVERIFY(copyFiles(text(DEMO_ENTRIES), text("*.json"), text("/usr/share/velka-settings/entries")));
    QVERIFY(copyFiles(text(DEMO_TRANSLATIONS), text("*.qm"), text("/usr/share/translations")));
    World::writeBlacklist("[]");
}

void DemoAccessTest::init()
{
    MGConfItem(Constants::FavoritesKey).set(s_favorites);
    MGConfItem(text("/apps/velka-settings/favoritesUserModified")).set(false);
    m_demo = std::make_unique<DemoWindow>(m_packages.path());
    m_window = m_demo->open({{text("animated"), false}});
    QVERIFY(m_window);
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    QTRY_VERIFY(isAtRest());
}

void DemoAccessTest::cleanup()
{
    m_demo.reset();
}

/// Presses a key and waits until the window shows the result.
void DemoAccessTest::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window, Qt::Key(key), modifiers);
    QTRY_VERIFY(isAtRest());
}

bool DemoAccessTest::isAtRest() const
{
    const QQmlIncubationController *const incubation = qmlEngine(m_window)->incubationController();
    return m_window->property("settled").toBool() && incubation->incubatingObjectCount() == 0;
}

/// Waits until the window shows the same in two frames: rows and the buttons of tool bars are created late.
bool DemoAccessTest::waitForRest()
{
    return WindowPictures(m_window, m_packages.path(), [this] { return isAtRest(); }).save(text("page"));
}

/// Returns what a screen reader says of the control that has the focus.
QString DemoAccessTest::focused() const
{
    QAccessible::setActive(true); // for the controls that have been created since the last call
    QQuickItem *const item = m_window->activeFocusItem();
    const QAccessibleInterface *const control = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    return control ? describe(*control) : QString();
}

/// Returns the object name of the control that has the focus.
QString DemoAccessTest::focusedRow() const
{
    const QQuickItem *const item = m_window->activeFocusItem();
    return item ? item->objectName() : QString();
}

QQuickItem *DemoAccessTest::page() const
{
    return m_window->property("pageStack").value<QQuickItem *>()->property("currentItem").value<QQuickItem *>();
}

/// Presses the tabulator key until the control with the focus has that name.
bool DemoAccessTest::tabTo(const char *name)
{
    for (int i = 0; i < 60; ++i) {
        press(Qt::Key_Tab);
        if (focused().contains(QLatin1Char('"') + text(name) + QLatin1Char('"'))) {
            return true;
        }
    }
    return false;
}

void DemoAccessTest::arrowsMoveTheFocus()
{
    QVERIFY(tabTo("Flight mode"));
    QCOMPARE(focusedRow(), text("entry system_settings/connectivity/flight_mode"));
    press(Qt::Key_Down);
    QCOMPARE(focused(), text(R"(Button "WLAN" (Saved networks, Add a network, Certificates) focusable)"));
    for (int i = 0; i < 40; ++i) {
        press(Qt::Key_Down);
    }
    QCOMPARE(focused(), text(R"(Button "About this device" (Licences) focusable)"));
    const QQuickItem *const row = m_window->activeFocusItem();
    const QRectF area = row->mapRectToScene(row->boundingRect());
    QVERIFY(m_window->contentItem()->boundingRect().contains(area)); // the list has scrolled
    press(Qt::Key_Up);
    QCOMPARE(focused(), text(R"(Button "Finish setting up" focusable)"));
}

void DemoAccessTest::returnOpensAPageAndEscapeGoesBack()
{
    QVERIFY(tabTo("Flight mode"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QCOMPARE(m_window->property("openPages").toInt(), 2);
    QCOMPARE(focused(), text(R"(Button "Saved networks" focusable)"));
    press(Qt::Key_Escape);
    QCOMPARE(focusedRow(), text("entry system_settings/connectivity/wlan"));
}

void DemoAccessTest::backKeysGoBack()
{
    QVERIFY(tabTo("Favourites"));
    press(Qt::Key_Space);
    QCOMPARE(focused(), text(R"(Button "WLAN" (Connectivity) focusable)"));
    press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(focused(), text(R"(Button "Favourites" focusable)"));
}

/// The controls of pages that are out of sight are left out.
void DemoAccessTest::tabReachesTheControlsInSight()
{
    QVERIFY(tabTo("Favourites"));
    press(Qt::Key_Return);
    QStringList names;
    for (int i = 0; i < 6; ++i) {
        names.append(focused().section(QLatin1Char('"'), 1, 1));
        press(Qt::Key_Tab);
    }
    QCOMPARE(names.join(QLatin1Char(',')), text("WLAN,Brightness,Free up space,,Add,Edit"));
}

void DemoAccessTest::pageWithoutControlsScrolls()
{
    QVERIFY(tabTo("Flight mode"));
    press(Qt::Key_Return);
    const auto *const area = page()->property("flickable").value<QQuickItem *>();
    m_window->resize(412, 400);
    QTRY_VERIFY(area->height() < 400);
    press(Qt::Key_PageDown);
    QVERIFY(area->property("contentY").toReal() > 0);
    press(Qt::Key_PageUp);
    QCOMPARE(area->property("contentY").toReal(), 0.0);
}

void DemoAccessTest::spaceChangesAFavorite()
{
    QVERIFY(tabTo("Favourites"));
    press(Qt::Key_Return);
    QVERIFY(tabTo("Add"));
    press(Qt::Key_Return);
    QVERIFY(tabTo("Connectivity"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(focused(), text(R"(CheckBox "WLAN" (Connectivity) focusable checkable checked)"));
    press(Qt::Key_Space);
    QCOMPARE(stored(), s_favorites.mid(1));
    QCOMPARE(focused(), text(R"(CheckBox "WLAN" (Connectivity) focusable checkable)"));
    press(Qt::Key_Space);
    QCOMPARE(stored(), s_favorites.mid(1) + s_favorites.mid(0, 1));
}

void DemoAccessTest::favoritesAreMovedAndRemoved()
{
    QVERIFY(tabTo("Favourites"));
    press(Qt::Key_Return);
    QVERIFY(tabTo("Edit"));
    press(Qt::Key_Return);
    QVERIFY(tabTo("WLAN"));
    press(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(stored().mid(0, 2), (QStringList{s_favorites.at(1), s_favorites.at(0)}));
    QCOMPARE(focused(), text(R"(Button "WLAN" (Connectivity) focusable)"));
    press(Qt::Key_Delete);
    QCOMPARE(stored(), s_favorites.mid(1));
    QTRY_COMPARE(focused(), text(R"(Button "Display and sound" focusable)"));
}

void DemoAccessTest::pagesOfARemovedEntryClose()
{
    const int rows = m_window->property("topRows").toInt();
    callQml(m_window, "showEntry", path("system_settings/connectivity/bluetooth"), true);
    QTRY_VERIFY(isAtRest());
    QCOMPARE(m_window->property("openPages").toInt(), 3);
    World::removeEntries(text("bluetooth.json"));
    QTRY_COMPARE(m_window->property("openPages").toInt(), 1);
    QVERIFY(copyFiles(text(DEMO_ENTRIES), text("bluetooth.json"), text("/usr/share/velka-settings/entries")));
    QTRY_COMPARE(m_window->property("topRows").toInt(), rows);
}

/// The address of a control opens the page around it, whose current row it becomes.
void DemoAccessTest::addressShowsARow()
{
    callQml(m_window, "showEntry", path("system_settings/look/sounds/do_not_disturb"), false);
    QVERIFY(waitForRest());
    QCOMPARE(page()->property("title").toString(), text("Sounds and vibration"));
    const auto *const list = page()->property("flickable").value<QQuickItem *>();
    const auto *const row = list->property("currentItem").value<QQuickItem *>();
    QVERIFY(row);
    QCOMPARE(row->property("path").toString(), text("system_settings/look/sounds/do_not_disturb"));
    press(Qt::Key_Return);
    QCOMPARE(page()->property("title").toString(), text("Do not disturb"));
}

/// Opens an address as another program does.
void DemoAccessTest::openFromOutside(const QString &address)
{
    const QString service = text("org.example.Demo");
    m_window->setProperty("service", service);
    QProcess tool;
    tool.start(text(VELKA_TOOL), {text("open"), text("--service"), service, address});
    QTRY_COMPARE(tool.state(), QProcess::NotRunning);
    QCOMPARE(tool.exitCode(), 0);
}

void DemoAccessTest::otherProgramOpensAnAddress()
{
    openFromOutside(text("system_settings/look/sounds"));
    QVERIFY(waitForRest());
    QCOMPARE(page()->property("title").toString(), text("Sounds and vibration"));
    QCOMPARE(m_window->property("openPages").toInt(), 2);
}

void DemoAccessTest::unknownAddressChangesNothing_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("no such entry") << text("system_settings/look/none");
    QTest::newRow("no such tree") << text("none/look/sounds");
    QTest::newRow("many names") << text("system_settings/look/sounds") + text("/a").repeated(3000);
}

void DemoAccessTest::unknownAddressChangesNothing()
{
    QFETCH(QString, address);
    callQml(m_window, "showEntry", path("system_settings/look/sounds/do_not_disturb"), false);
    QVERIFY(waitForRest());
    const QPointer<QQuickItem> shown = page();
    const auto *const list = shown->property("flickable").value<QQuickItem *>();
    const QVariant row = list->property("currentIndex");
    const MessageLog log;
    openFromOutside(address);
    QStringList messages;
    QTRY_VERIFY(!(messages += MessageLog::take()).isEmpty());
    QCOMPARE(messages, QStringList{settingsWarning(Messages::NoPage, address.left(100))});
    QCOMPARE(page(), shown.data());
    QCOMPARE(list->property("currentIndex"), row);
    QCOMPARE(m_window->property("openPages").toInt(), 2);
}

/// The titles are texts, also those that JavaScript's replace() would expand.
void DemoAccessTest::otherTreeComesAndGoes()
{
    const MessageLog log;
    World::writeEntries(text("other.json"), R"({"entries": [
        {"path": "other", "title": "Other"},
        {"path": "other/action", "type": "action", "title": "$& $' %1",
         "params": {"remote-service": "org.example.None", "remote-path": "/none",
                    "remote-interface": "org.example.None", "remote-method": "none"}}]})");
    QTRY_VERIFY(PluginRegistry::instance()->getItem(path("other/action")));
    callQml(m_window, "showEntry", path("other/action"), true);
    QVERIFY(waitForRest());
    QQuickItem *const outcome = findItem(m_window, text("outcome"));
    QVERIFY(outcome);
    callQml(outcome, "run");
    QTRY_COMPARE(outcome->property("outcome").toString(), text("failed"));
    const QString shown = outcome->property("plainText").toString();
    QVERIFY2(shown.contains(text("$& $' %1")), qPrintable(shown));
    World::removeEntries(text("other.json"));
    QTRY_COMPARE(m_window->property("openPages").toInt(), 1);
    QVERIFY(waitForRest());
    QCOMPARE(MessageLog::take().join(QLatin1Char('\n')), QString());
}

void DemoAccessTest::searchOpensAnEntry()
{
    press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(focusedRow(), text("search"));
    for (const char key : QByteArray("disturb")) {
        QTest::keyClick(m_window, key);
    }
    const QString found = text("found system_settings/look/sounds/do_not_disturb");
    QTRY_VERIFY(findItem(m_window, found));
    QCOMPARE(findItem(m_window, found)->property("markup").toString(), text("Do not <b>disturb</b>"));
    press(Qt::Key_Down);
    QCOMPARE(focusedRow(), found);
    press(Qt::Key_Return);
    QCOMPARE(page()->property("title").toString(), text("Sounds and vibration"));
}

void DemoAccessTest::pagesAreRead_data()
{
    QTest::addColumn<QStringList>("entry");
    QTest::addColumn<QString>("script");
    QTest::newRow("top") << path("system_settings") << QString();
    QTest::newRow("category") << path("system_settings/connectivity/wlan") << QString();
    QTest::newRow("details") << path("system_settings/connectivity/wlan/add_network") << QString();
    QTest::newRow("favorites") << path("system_settings") << text("openFavorites()");
    QTest::newRow("favorite-choice") << path("system_settings") << text("openFavoriteChoice(0)");
    QTest::newRow("search") << path("system_settings")
                            << text("openSearch(); pageStack.currentItem.header.text = 'disturb'");
    QTest::newRow("applications") << path("system_settings") << text("openApplications()");
    const QString application = QStandardPaths::locate(QStandardPaths::ApplicationsLocation,
                                                       text("camera.desktop"));
    QTest::newRow("application") << path("system_settings")
                                 << text("openApplications(); openApplication('%1', 1)").arg(application);
}

/// Compares what a screen reader finds on a page with the file of the row. scripts/update-demo-pages writes the files.
void DemoAccessTest::pagesAreRead()
{
    QFETCH(QStringList, entry);
    QFETCH(QString, script);
    const bool isAction = entry.size() == 4;
    callQml(m_window, "showEntry", entry, isAction);
    if (script.startsWith(text("openApplications"))) { // there are no services
        for (const char *warning : {"Failed to get allowlist", "Failed to get notifications configs list"}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text(warning)));
        }
    }
    QQmlExpression(qmlContext(m_window), m_window, script).evaluate();
    waitForServices();
    const auto *const area = page()->property("flickable").value<QQuickItem *>();
    QTRY_VERIFY(area->property("count") != QVariant(0)); // the search finds its entries later
    QVERIFY(waitForRest());
    QAccessible::setActive(true);
    QQuickItem *const content = area->parentItem();
    const QString tree = accessibleTree(*QAccessible::queryAccessibleInterface(content));
    QFile file(text(DEMO_PAGES) + QLatin1Char('/') + text(QTest::currentDataTag()) + text(".txt"));
    if (qEnvironmentVariableIsSet("VELKA_UPDATE_PAGES")) {
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(tree.toUtf8()) >= 0);
        return;
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(tree, QString::fromUtf8(file.readAll()));
}

int main(int argc, char *argv[])
{
    prepareApplication();
    const QGuiApplication application(argc, argv);
    DemoAccessTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_demoaccess.moc"
