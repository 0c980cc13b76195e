// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "messagelog.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>

// Untrusted files, large numbers of files, and limits of the system
class tst_LauncherLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void opensOnlyRegularFiles();
    void warnsAboutBrokenFiles_data();
    void warnsAboutBrokenFiles();
    void readsAFileThatBecomesReadable();
    void acceptsNamesThatAreNotText();
    void ignoresLoopsOfLinks();
    void limitsTheDepthOfDirectories();
    void limitsTheDepthOfMenus();
    void acceptsLongMenus();
    void readsOnlyWhatChanged_data();
    void readsOnlyWhatChanged();
    void worksWithoutWatches();
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

void tst_LauncherLimits::init()
{
    qputenv("LANGUAGE", "C");
}

void tst_LauncherLimits::opensOnlyRegularFiles()
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

void tst_LauncherLimits::warnsAboutBrokenFiles_data()
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

void tst_LauncherLimits::warnsAboutBrokenFiles()
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

void tst_LauncherLimits::readsAFileThatBecomesReadable()
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

void tst_LauncherLimits::acceptsNamesThatAreNotText()
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
    QCOMPARE(fileIds(model), fileIds(LauncherFolderModel()));
    QVERIFY(fileIds(model).contains(text("a\nb.desktop")));
    QCOMPARE(MessageLog::take(), QStringList());
}

void tst_LauncherLimits::ignoresLoopsOfLinks()
{
    const Applications applications;
    applications.write("first/sub/a.desktop", application("A"));
    for (const char *name : {"first/up", "first/sub/up", "first/sub/again"}) {
        applications.link(applications.path("first"), name);
    }
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A"));
}

void tst_LauncherLimits::limitsTheDepthOfDirectories()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write(QByteArray("first/" + QByteArray("d/").repeated(16) + "b.desktop").constData(),
                       application("B"));
    applications.write(QByteArray("first/" + QByteArray("d/").repeated(17) + "c.desktop").constData(),
                       application("C"));
    applications.write(QByteArray("first/" + QByteArray("d/").repeated(100) + "d.desktop").constData(),
                       application("D"));
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A B"));
    applications.remove("first/d");
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

void tst_LauncherLimits::limitsTheDepthOfMenus()
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

void tst_LauncherLimits::acceptsLongMenus()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.writeMenu("<Menu>" + QByteArray("<Menu/>").repeated(4000)
                           + QByteArray("<Filename>x.desktop</Filename>").repeated(1000) + "</Menu>");
    const LauncherFolderModel model;
    QCOMPARE(model.itemCount(), 4001);
}

namespace
{
/// Records which files of a directory any process opens. The directory itself is "".
class OpenedFiles
{
public:
    explicit OpenedFiles(const QString &directory)
        : m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (inotify_add_watch(m_inotify, encoded(directory).constData(), IN_OPEN) < 0) {
            qFatal("Can't watch %s", qPrintable(directory));
        }
    }
    ~OpenedFiles()
    {
        close(m_inotify);
    }
    OpenedFiles(const OpenedFiles &) = delete;
    OpenedFiles &operator=(const OpenedFiles &) = delete;

    /// Returns the names since the last call, each once.
    QStringList take() const
    {
        QStringList names;
        alignas(inotify_event) std::array<char, 65536> buffer;
        ssize_t length = 0;
        while ((length = read(m_inotify, buffer.data(), buffer.size())) > 0) {
            for (ssize_t offset = 0; offset < length;) {
                const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + offset);
                names.append(event->len ? QFile::decodeName(event->name) : QString());
                offset += ssize_t(sizeof(inotify_event)) + event->len;
            }
        }
        names.removeDuplicates();
        return names;
    }

private:
    const int m_inotify;
};
}

void tst_LauncherLimits::readsOnlyWhatChanged_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("few") << 10;
    QTest::newRow("many") << 1000;
}

void tst_LauncherLimits::readsOnlyWhatChanged()
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

void tst_LauncherLimits::worksWithoutWatches()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    rlimit before = {};
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    // The next descriptor exceeds the limit.
    const int next = dup(0);
    close(next);
    const rlimit none = {rlim_t(next), before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
    QTest::ignoreMessage(QtWarningMsg, "LauncherFolderModel: cannot follow the applications: Too many open files");
    const LauncherFolderModel model;
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
    QCOMPARE(rows(model), text(""));
    const LauncherFolderModel later;
    QCOMPARE(rows(later), text("A"));
}

namespace
{
int eventLimit()
{
    QFile file(text("/proc/sys/fs/inotify/max_queued_events"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
}
}

void tst_LauncherLimits::readsAllFilesAgainAfterLostEvents()
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

namespace
{
/// Returns the number of watches of this process.
int watchCount()
{
    int count = 0;
    const QFileInfoList descriptors = QDir(text("/proc/self/fdinfo")).entryInfoList(QDir::Files);
    for (const QFileInfo &descriptor : descriptors) {
        QFile file(descriptor.filePath());
        if (file.open(QIODevice::ReadOnly)) {
            count += file.readAll().count("\ninotify wd:");
        }
    }
    return count;
}
}

void tst_LauncherLimits::removesWatchesOfRemovedFiles()
{
    const Applications applications;
    applications.write("elsewhere/target", application("A"));
    applications.write("first/b.desktop", application("B"));
    const LauncherFolderModel model;
    const int before = watchCount();
    applications.link(applications.path("elsewhere/target"), "first/sub/deep/a.desktop");
    QTRY_COMPARE(rows(model), text("A B"));
    QCOMPARE(watchCount(), before + 3);
    applications.rename("first/sub", "elsewhere/sub");
    QTRY_COMPARE(rows(model), text("B"));
    QCOMPARE(watchCount(), before);
}

QTEST_GUILESS_MAIN(tst_LauncherLimits)
#include "tst_launcherlimits.moc"
