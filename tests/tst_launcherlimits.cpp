// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "inotifyuse.h"
#include "messagelog.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

// Untrusted files, large numbers of files, and limits of the system
class LauncherLimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void opensOnlyRegularFiles();
    void warnsAboutBrokenFiles_data();
    void warnsAboutBrokenFiles();
    void readsAFileThatBecomesReadable();
    void acceptsNamesThatAreNotText();
    void ignoresLoopsOfLinks();
    void limitsTheDepthOfDirectories();
    void limitsTheNumberOfDirectories();
    void limitsTheNumberOfFiles();
    void limitsTheBytesOfFiles();
    void followsALinkToTheRoot();
    void limitsTheDepthOfMenus();
    void acceptsLongMenus();
    void readsOnlyWhatChanged_data();
    void readsOnlyWhatChanged();
    void readsAllFilesAgainAfterLostEvents();
    void removesWatchesOfRemovedFiles();
};

namespace
{
QByteArray encoded(const QString &path)
{
    return QFile::encodeName(path);
}

void makeSocket(const QString &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = encoded(path);
    QVERIFY(size_t(name.size()) < sizeof(address.sun_path));
    std::strcpy(address.sun_path, name.constData());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    QCOMPARE(bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    close(socket);
}
}

void LauncherLimitsTest::initTestCase()
{
    // The sandbox has put the home into memory, where many files are made faster.
    qputenv("TMPDIR", QFile::encodeName(QDir::homePath()));
}

void LauncherLimitsTest::init()
{
    qputenv("LANGUAGE", "C");
}

void LauncherLimitsTest::opensOnlyRegularFiles()
{
    const MessageLog log;
    const Applications applications;
    for (const char *file : {"pipe", "socket", "device", "broken", "loop", "directory", "null"}) {
        applications.write(qPrintable(text("second/%1.desktop").arg(text(file))), application(file));
    }
    applications.write("first/directory.desktop/a.txt", "");
    applications.link(text("/dev/zero"), "first/device.desktop");
    applications.link(text("/dev/null"), "first/null.desktop");
    applications.link(text("/nowhere"), "first/broken.desktop");
    applications.link(text("loop.desktop"), "first/loop.desktop");
    makeSocket(applications.path("first/socket.desktop"));
    QCOMPARE(mkfifo(encoded(applications.path("first/pipe.desktop")).constData(), 0600), 0);
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("directory"));
    // The same holds for files that are added later.
    applications.remove("first/broken.desktop");
    QTRY_COMPARE(rows(model), text("broken directory"));
    QCOMPARE(mkfifo(encoded(applications.path("user/broken.desktop")).constData(), 0600), -1);
    applications.write("user/z.desktop", application("z"));
    QCOMPARE(mkfifo(encoded(applications.path("user/broken.desktop")).constData(), 0600), 0);
    QTRY_COMPARE(rows(model), text("directory z"));
    QCOMPARE(MessageLog::take(), QStringList());
}

void LauncherLimitsTest::warnsAboutBrokenFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason"); // its start

    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\0\1\xff",
                                          7)
                            << text("Key file contains line");
    QTest::newRow("huge") << application("A", "Comment=" + QByteArray(2 * 1024 * 1024, 'a'))
                          << text("larger than 1048576 bytes");
}

void LauncherLimitsTest::warnsAboutBrokenFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const MessageLog log;
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", content);
    applications.write("second/b.desktop", application("hidden by the broken one"));
    const QString start = text("warning default: LauncherFolderModel: cannot read \"%1\": %2")
                              .arg(applications.path("first/b.desktop"), reason);
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A"));
    const QStringList messages = MessageLog::take();
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.first().startsWith(start));

    applications.write("first/b.desktop", application("B"));
    QTRY_COMPARE(rows(model), text("A B"));
    applications.write("first/b.desktop", content);
    QTRY_COMPARE(rows(model), text("A"));
    QCOMPARE(MessageLog::take().size(), 1);
}

void LauncherLimitsTest::readsAFileThatBecomesReadable()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    QFile file(applications.path("first/a.desktop"));
    QVERIFY(file.setPermissions({}));
    QVERIFY(!file.open(QIODevice::ReadOnly)); // The sandbox drops the privileges of root.
    const QString warning
        = text("LauncherFolderModel: cannot read \"%1\": Permission denied").arg(file.fileName());
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text(""));
    QVERIFY(file.setPermissions(QFile::ReadOwner));
    QTRY_COMPARE(rows(model), text("A"));
}

void LauncherLimitsTest::acceptsNamesThatAreNotText()
{
    const MessageLog log;
    const Applications applications;
    applications.write("first/b.desktop", application("B"));
    const QByteArray original = encoded(applications.path("first/b.desktop"));
    const QByteArray directory = original.chopped(int(qstrlen("/b.desktop")));
    const LauncherFolderModel model;
    for (const char *name : {"/\xff\xfe.desktop", "/a\nb.desktop", "/\xc3\xa4 \"'.desktop", "/.desktop"}) {
        QCOMPARE(link(original.constData(), (directory + name).constData()), 0);
    }
    QTRY_COMPARE(model.itemCount(), 4);
    QCOMPARE(fileIds(model), fileIds(UnsharedLauncher().model()));
    QVERIFY(fileIds(model).contains(text("a\nb.desktop")));
    QCOMPARE(MessageLog::take(), QStringList());
}

void LauncherLimitsTest::ignoresLoopsOfLinks()
{
    const Applications applications;
    applications.write("first/sub/a.desktop", application("A"));
    for (const char *name : {"first/up", "first/sub/up", "first/sub/again"}) {
        applications.link(applications.path("first"), name);
    }
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A"));
}

/// Returns the warning about too much in an application directory.
static QString excess(const Applications &applications)
{
    return text("warning default: LauncherFolderModel: \"%1\" has more than 1000 directories, 100000 files or 64 "
                "MiB "
                "of desktop files, or is deeper than 16 directories: not all of its applications are listed")
        .arg(QFileInfo(applications.path("first/x")).path());
}

void LauncherLimitsTest::limitsTheDepthOfDirectories()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write(QByteArray("first/" + QByteArray("d/").repeated(16) + "b.desktop").constData(),
                       application("B"));
    applications.write(QByteArray("first/" + QByteArray("d/").repeated(17) + "c.desktop").constData(),
                       application("C"));
    applications.write(QByteArray("first/" + QByteArray("d/").repeated(100) + "d.desktop").constData(),
                       application("D"));
    const MessageLog log;
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A B"));
    QCOMPARE(MessageLog::take(), QStringList{excess(applications)});
    applications.remove("first/d");
    QTRY_COMPARE(rows(model), text("A"));
    QCOMPARE(MessageLog::take(), QStringList());
}

void LauncherLimitsTest::limitsTheNumberOfDirectories()
{
    constexpr int Most = 1000; // with the application directory itself
    const MessageLog log;
    const Applications applications;
    for (int i = 0; i < Most + 100; ++i) {
        applications.write(qPrintable(text("first/%1/a.desktop").arg(i)), application("A"));
    }
    applications.write("first/0/deep/b.desktop", application("B"));
    applications.write("first/c.desktop", application("C"));
    const int watches = inotifyWatches();
    const LauncherFolderModel model;
    QCOMPARE(model.itemCount(), Most);
    QVERIFY(!rows(model).contains(text("B")));
    QVERIFY(rows(model).contains(text("C")));
    QVERIFY(inotifyWatches() - watches < Most + 20);
    const LauncherFolderModel second;
    applications.write("first/new/a.desktop", application("New"));
    applications.write("first/d.desktop", application("D"));
    QTRY_VERIFY(rows(model).contains(text("D")));
    QCOMPARE(model.itemCount(), Most + 1);
    QCOMPARE(MessageLog::take(), QStringList{excess(applications)});
    // The others are listed when there is room for them.
    for (int i = 0; i < 200; ++i) {
        applications.remove(qPrintable(text("first/%1").arg(i)));
    }
    QTRY_COMPARE(model.itemCount(), Most + 100 - 200 + 3);
    QVERIFY(rows(model).contains(text("New")));
    QCOMPARE(MessageLog::take(), QStringList());
}

void LauncherLimitsTest::limitsTheNumberOfFiles()
{
    const MessageLog log;
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/sub/0", "");
    const QByteArray directory = encoded(applications.path("first/sub/"));
    for (int i = 0; i < 100000; ++i) {
        const QByteArray path = directory + QByteArray::number(i);
        close(open(path.constData(), O_CREAT | O_CLOEXEC, 0600));
    }
    applications.write("first/sub/deep/b.desktop", application("B"));
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A"));
    QCOMPARE(MessageLog::take(), QStringList{excess(applications)});
}

void LauncherLimitsTest::limitsTheBytesOfFiles()
{
    const MessageLog log;
    const Applications applications;
    applications.write("first/0.desktop", application("A", "Comment=").leftJustified(1 << 20, 'a'));
    const QByteArray file = encoded(applications.path("first/0.desktop"));
    for (int i = 1; i < 70; ++i) {
        const QString name = text("first/%1.desktop").arg(i);
        QCOMPARE(link(file.constData(), encoded(applications.path(qPrintable(name))).constData()), 0);
    }
    const LauncherFolderModel model;
    QCOMPARE(model.itemCount(), 64);
    QCOMPARE(MessageLog::take(), QStringList{excess(applications)});
    for (int i = 0; i < 10; ++i) {
        applications.remove(qPrintable(text("first/%1.desktop").arg(i)));
    }
    QTRY_COMPARE(model.itemCount(), 60);
    QCOMPARE(MessageLog::take(), QStringList());
}

void LauncherLimitsTest::followsALinkToTheRoot()
{
    const MessageLog log;
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    const int watches = inotifyWatches();
    QVERIFY(QDir().mkpath(applications.path("user")));
    const QString directory = applications.path("user") + text("/applications");
    QVERIFY(QFile::link(text("/"), directory));
    const LauncherFolderModel model;
    QVERIFY(fileIds(model).contains(text("a.desktop")));
    QVERIFY(inotifyWatches() - watches < 1100);
    QCOMPARE(MessageLog::take().filter(text("/user/applications\" has more than 1000 directories")).size(), 1);
    QVERIFY(QFile::remove(directory));
    QTRY_COMPARE(rows(model), text("A"));
}

namespace
{
int depthOf(const LauncherFolderItem *folder)
{
    int depth = 0;
    while (folder) {
        ++depth;
        folder = qobject_cast<LauncherFolderItem *>(folder->get(0));
    }
    return depth;
}
}

void LauncherLimitsTest::limitsTheDepthOfMenus()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    for (const QByteArray &element : {QByteArray("Menu"), QByteArray("Other")}) {
        constexpr int depth = 4000;
        applications.writeMenu("<Menu><Filename>b.desktop</Filename></Menu>");
        LauncherFolderModel model;
        QCOMPARE(rows(model), text("B A"));
        applications.writeMenu("<Menu>" + ("<" + element + ">").repeated(depth) + "<Filename>b.desktop</Filename>"
                               + ("</" + element + ">").repeated(depth) + "<Filename>b.desktop</Filename></Menu>");
        model.load();
        QCOMPARE(depthOf(&model), element == "Menu" ? 17 : 1);
        QCOMPARE(itemAt(model, model.itemCount() - 1)->title(), text("A"));
        QCOMPARE(itemAt(model, model.itemCount() - 2)->title(), text("B"));
    }
}

void LauncherLimitsTest::acceptsLongMenus()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.writeMenu("<Menu>" + QByteArray("<Menu/>").repeated(4000)
                           + QByteArray("<Filename>x.desktop</Filename>").repeated(1000) + "</Menu>");
    const LauncherFolderModel model;
    QCOMPARE(model.itemCount(), 4001);
}

void LauncherLimitsTest::readsOnlyWhatChanged_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("few") << 10;
    QTest::newRow("many") << 1000;
}

void LauncherLimitsTest::readsOnlyWhatChanged()
{
    QFETCH(int, size);
    const Applications applications;
    for (int i = 0; i < size; ++i) {
        applications.write(qPrintable(text("first/%1.desktop").arg(i)), application(QByteArray::number(i)));
    }
    const OpenedFiles opened(QFileInfo(applications.path("first/0.desktop")).path());
    LauncherFolderModel model;
    QCOMPARE(model.itemCount(), size);
    QCOMPARE(opened.take().size(), size + 1);

    QSignalSpy changes(&model, &LauncherFolderItem::itemChanged);
    applications.write("first/5.desktop", application("A"));
    QVERIFY(changes.wait());
    QCOMPARE(opened.take(), QStringList{text("5.desktop")});

    applications.rename("first/6.desktop", "first/new.desktop");
    QTRY_VERIFY(fileIds(model).contains(text("new.desktop")));
    QCOMPARE(opened.take(), QStringList{text("new.desktop")});

    applications.remove("first/7.desktop");
    QTRY_COMPARE(model.itemCount(), size - 1);
    QCOMPARE(opened.take(), QStringList());
}

namespace
{
int eventLimit()
{
    QFile file(text("/proc/sys/fs/inotify/max_queued_events"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
}
}

void LauncherLimitsTest::readsAllFilesAgainAfterLostEvents()
{
    const int limit = eventLimit();
    QVERIFY(limit > 0);
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/c.desktop", application("C"));
    const LauncherFolderModel model;
    const QSignalSpy changes(&model, &LauncherFolderItem::itemChanged);
    applications.write("first/x", "");
    const QByteArray x = encoded(applications.path("first/x"));
    const QByteArray y = encoded(applications.path("first/y"));
    for (int i = 0; i <= limit / 4; ++i) { // each renaming makes two events
        QCOMPARE(std::rename(x.constData(), y.constData()), 0);
        QCOMPARE(std::rename(y.constData(), x.constData()), 0);
    }
    applications.write("first/b.desktop", application("B"));
    applications.remove("first/a.desktop");
    QTRY_COMPARE(rows(model), text("B C"));
    QCOMPARE(changes.count(), 0);
}

void LauncherLimitsTest::removesWatchesOfRemovedFiles()
{
    const Applications applications;
    applications.write("elsewhere/target", application("A"));
    applications.write("first/b.desktop", application("B"));
    const LauncherFolderModel model;
    const int before = inotifyWatches();
    applications.link(applications.path("elsewhere/target"), "first/sub/deep/a.desktop");
    QTRY_COMPARE(rows(model), text("A B"));
    QCOMPARE(inotifyWatches(), before + 3);
    applications.rename("first/sub", "elsewhere/sub");
    QTRY_COMPARE(rows(model), text("B"));
    QCOMPARE(inotifyWatches(), before);
}

QTEST_GUILESS_MAIN(LauncherLimitsTest)
#include "tst_launcherlimits.moc"
