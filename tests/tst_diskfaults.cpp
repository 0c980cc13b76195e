// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/constants.h"
#include "favoritesedits.h"
#include "messagelog.h"
#include "models/settingsmodel.h"
#include "readonlyconfiguration.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <atomic>
#include <chrono>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

class DiskFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void homeIsFull_data();
    void homeIsFull();
    void configurationIsReadOnly_data();
    void configurationIsReadOnly();
    void entriesDirectoryIsForbidden();
    void entriesDirectoryCannotBeEntered();
    void fileShrinksWhileItIsRead();
    void fileIsWholeAgain();
    void brokenFileIsReportedOnce();
    void notAFile_data();
    void notAFile();
    void nameWithNull();
};

namespace
{
using Clock = std::chrono::steady_clock;

constexpr auto ReadWriteUser = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

// The sandbox has put a device into the directory, see CMakeLists.txt.
const QString s_device = QStringLiteral("device.json");
const QString s_deviceIsUnreadable = settingsWarning("Can't read entries file", s_device);

QString entriesPath(const QString &name)
{
    return Constants::EntriesDirectory + QLatin1Char('/') + name;
}

/// Fills the home during its lifetime.
class Ballast
{
public:
    Ballast()
        : m_file(QDir::home().filePath(text("ballast")))
    {
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            qFatal("The home cannot be written");
        }
        const QByteArray block(4096, 'x');
        while (m_file.write(block) > 0) {}
    }

    ~Ballast()
    {
        m_file.remove();
    }

private:
    QFile m_file;
};

template<typename Fault>
void edit()
{
    QFETCH(FavoritesEdit, edit);
    storeThreeFavorites();
    WatchedFavorites model;
    QCOMPARE(model.names(), path("a/b/c"));
    {
        const Fault fault;
        const GLibWarnings warnings;
        edit(&model);
        QTRY_VERIFY(GLibWarnings::count() > 0);
        QTRY_VERIFY(areThreeFavoritesStored());
        QTRY_VERIFY(model.isConsistent());
        QCOMPARE(WatchedFavorites().names(), path("a/b/c"));
        QVERIFY(pagesFollowTheRegistry());
        QCOMPARE(GLibWarnings::count(), 1);
    }
    edit(&model);
    QVERIFY(model.isConsistent());
    QTRY_VERIFY(!areThreeFavoritesStored());
    QVERIFY(model.isConsistent());
}
}

void DiskFaultsTest::init()
{
    QFile::setPermissions(Constants::EntriesDirectory, ReadWriteUser); // a failed test may have left it
    World::reset();
    World::rescan(PluginRegistry::instance());
}

void DiskFaultsTest::homeIsFull_data()
{
    favoritesEdits();
}

void DiskFaultsTest::homeIsFull()
{
    edit<Ballast>();
}

void DiskFaultsTest::configurationIsReadOnly_data()
{
    favoritesEdits();
}

void DiskFaultsTest::configurationIsReadOnly()
{
    edit<ReadOnlyConfiguration>();
}

void DiskFaultsTest::entriesDirectoryIsForbidden()
{
    declareSections(path("a/b"));
    SettingsModel page;
    page.setDepth(1);
    QCOMPARE(page.count(), 2);
    const MessageLog log;
    QVERIFY(QFile::setPermissions(Constants::EntriesDirectory, {}));
    QTRY_COMPARE(page.count(), 0); // like after any other change of the directory
    QCOMPARE(PluginRegistry::instance()->getItem({})->count(-1), 0);
    QCOMPARE(WatchedFavorites()->count(), 0);
    QCOMPARE(log.take(), QStringList());

    QVERIFY(QFile::setPermissions(Constants::EntriesDirectory, ReadWriteUser));
    QTRY_COMPARE(page.count(), 2);
    QVERIFY(pagesFollowTheRegistry());
    QCOMPARE(log.take(), QStringList{s_deviceIsUnreadable});
}

// The names can be read, but no file.
void DiskFaultsTest::entriesDirectoryCannotBeEntered()
{
    declareSections(path("a/b"));
    SettingsModel page;
    page.setDepth(1);
    const MessageLog log;
    QVERIFY(QFile::setPermissions(Constants::EntriesDirectory, QFile::ReadOwner));
    World::rescan(PluginRegistry::instance());
    QCOMPARE(page.count(), 2);
    QCOMPARE(log.take(), QStringList());
    const PluginRegistry registry;
    QCOMPARE(World::paths(registry.getItem({})), QStringList());
    QCOMPARE(log.take(),
             (QStringList{s_deviceIsUnreadable, settingsWarning("Can't read entries file", text("x.json"))}));

    QVERIFY(QFile::setPermissions(Constants::EntriesDirectory, ReadWriteUser));
    QVERIFY(pagesFollowTheRegistry());
    QCOMPARE(page.count(), 2);
    QCOMPARE(log.take(), QStringList());
}

void DiskFaultsTest::fileShrinksWhileItIsRead()
{
    const QByteArray json = R"({"entries": [{"path": "a", "title": ")" + QByteArray(1 << 20, 'x') + "\"}]}";
    const QString file = entriesPath(text("x.json"));
    World::writeFile(file, json);
    PluginRegistry registry;
    const MessageLog log;
    int loaded = 0;
    int refused = 0;
    for (int i = -100; i < 100; ++i) {
        World::writeFile(file, json);
        registry.removeEntriesForFile(text("x.json"));
        std::atomic<Clock::time_point> shrinksAt(Clock::time_point::max());
        std::atomic<bool> ready(false);
        std::thread writer([&] {
            ready = true;
            while (Clock::now() < shrinksAt.load()) {}
            QFile::resize(file, 100);
        });
        while (!ready) {}
        // From before it is opened until after it is read
        const auto readAt = Clock::now() + std::chrono::milliseconds(3);
        shrinksAt = readAt + i * std::chrono::microseconds(25);
        while (Clock::now() < readAt) {}
        registry.addEntriesForFile(text("x.json"));
        writer.join();
        const QStringList messages = log.take();
        registry.getItem({text("a")}) ? ++loaded : ++refused;
        QVERIFY(messages.isEmpty()
                || messages
                       == QStringList{settingsWarning("Can't parse JSON file or file is empty:", text("x.json"))});
        QVERIFY(World::brokenInvariants(registry.getItem({})).isEmpty());
    }
    QVERIFY(loaded > 0);
    QVERIFY(refused > 0);
}

void DiskFaultsTest::fileIsWholeAgain()
{
    const QString file = entriesPath(text("x.json"));
    World::writeFile(file, R"({"entries": [{"path": "a"})");
    QTest::ignoreMessage(QtWarningMsg, R"(Can't parse JSON file or file is empty: "x.json")");
    PluginRegistry registry;
    QVERIFY(!registry.getItem({text("a")}));
    const MessageLog log;
    World::writeFile(file, R"({"entries": [{"path": "a"}]})");
    registry.addEntriesForFile(text("x.json"));
    QVERIFY(registry.getItem({text("a")}));
    QCOMPARE(log.take(), QStringList());
}

void DiskFaultsTest::brokenFileIsReportedOnce()
{
    World::writeEntries(text("broken.json"), "{");
    const MessageLog log;
    PluginRegistry registry;
    for (int i = 0; i < 1000; ++i) {
        World::writeEntries(text("x.json"), R"({"entries": [{"path": "a"}]})");
        World::rescan(&registry);
        QVERIFY(registry.getItem({text("a")}));
        World::removeEntries(text("x.json"));
        World::rescan(&registry);
        QVERIFY(!registry.getItem({text("a")}));
    }
    QCOMPARE(log.take(),
             (QStringList{settingsWarning("Can't parse JSON file or file is empty:", text("broken.json")),
                          s_deviceIsUnreadable}));
}

void DiskFaultsTest::notAFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("device") << s_device;
    QTest::newRow("link to a device") << text("link.json");
    QTest::newRow("socket") << text("socket.json");
    QTest::newRow("link to itself") << text("loop.json");
    QTest::newRow("two links to each other") << text("there.json");
}

void DiskFaultsTest::notAFile()
{
    QFETCH(QString, name);
    QVERIFY(QFile::link(text("/dev/zero"), entriesPath(text("link.json"))));
    QVERIFY(QFile::link(text("loop.json"), entriesPath(text("loop.json"))));
    QVERIFY(QFile::link(text("back.json"), entriesPath(text("there.json"))));
    QVERIFY(QFile::link(text("there.json"), entriesPath(text("back.json"))));
    sockaddr_un address{AF_UNIX, {}};
    qstrcpy(address.sun_path, QFile::encodeName(entriesPath(text("socket.json"))).constData());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QCOMPARE(bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "x"}]})");
    QVERIFY(QFileInfo(entriesPath(name)).isSymLink() || QFileInfo::exists(entriesPath(name)));

    const MessageLog log;
    PluginRegistry registry; // lists devices and links to them, nothing else of this
    QCOMPARE(log.take(),
             (QStringList{s_deviceIsUnreadable, settingsWarning("Can't read entries file", text("link.json"))}));
    registry.addEntriesForFile(name);
    QCOMPARE(log.take(), QStringList{settingsWarning("Can't read entries file", name)});
    registry.removeEntriesForFile(name);
    QCOMPARE(World::paths(registry.getItem({})), path("x"));
    QVERIFY(pagesFollowTheRegistry());
    close(socket);
}

void DiskFaultsTest::nameWithNull()
{
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "x"}]})");
    PluginRegistry registry;
    registry.removeEntriesForFile(text("x.json"));
    QTest::ignoreMessage(QtWarningMsg, R"(Can't read entries file "x.json\u0000y")");
    registry.addEntriesForFile(QString::fromLatin1("x.json\0y", 8));
    QVERIFY(!registry.getItem({text("x")}));
}

QTEST_GUILESS_MAIN(DiskFaultsTest)
#include "tst_diskfaults.moc"
