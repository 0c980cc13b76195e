// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/filewatcher.h"

#include "inotifyuse.h"
#include "messagelog.h"
#include "text.h"

#include <QDir>
#include <QFile>
#include <QFileSystemWatcher>
#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

class FileWatcherTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void follows_data();
    void follows();
    void watchesAgain();

private:
    QString file() const;
    void write(const QByteArray &content) const;
    void replace(const QByteArray &content) const;

    std::optional<QTemporaryDir> m_directory;
};

namespace
{
enum Shortage { None, Instances, Watches };
}

void FileWatcherTest::init()
{
    m_directory.emplace();
}

QString FileWatcherTest::file() const
{
    return m_directory->filePath(text("file"));
}

void FileWatcherTest::write(const QByteArray &content) const
{
    QFile target(file());
    QVERIFY(target.open(QIODevice::WriteOnly));
    QCOMPARE(target.write(content), content.size());
}

void FileWatcherTest::replace(const QByteArray &content) const
{
    QSaveFile target(file());
    QVERIFY(target.open(QIODevice::WriteOnly));
    target.write(content);
    QVERIFY(target.commit());
}

void FileWatcherTest::follows_data()
{
    QTest::addColumn<int>("shortage");
    QTest::newRow("inotify") << int(None);
    QTest::newRow("no instance") << int(Instances);
    QTest::newRow("no watch") << int(Watches);
}

void FileWatcherTest::follows()
{
    QFETCH(int, shortage);
    const MessageLog log; // Qt reports each watch that it cannot have
    std::optional<NoInotifyInstances> noInstances;
    std::optional<NoInotifyWatches> noWatches;
    if (shortage == Instances) {
        noInstances.emplace();
    } else if (shortage == Watches) {
        noWatches.emplace();
    }
    const FileWatcher watcher(file());
    QSignalSpy changes(&watcher, &FileWatcher::fileChanged);
    write("made");
    QTRY_VERIFY(changes.count() > 0);
    changes.clear();
    replace("replaced");
    QTRY_VERIFY(changes.count() > 0);
    changes.clear();
    QVERIFY(QFile::remove(file()));
    QTRY_VERIFY(changes.count() > 0);
}

void FileWatcherTest::watchesAgain()
{
    const MessageLog log;
    write("first");
    std::optional<NoInotifyWatches> noWatches;
    noWatches.emplace();
    const FileWatcher watcher(file());
    const auto *watched = watcher.findChild<QFileSystemWatcher *>();
    QCOMPARE(watched->files() + watched->directories(), QStringList());
    noWatches.reset();
    QSignalSpy changes(&watcher, &FileWatcher::fileChanged);
    write("second");
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(watched->files() + watched->directories(), (QStringList{file(), m_directory->path()}));
}

QTEST_GUILESS_MAIN(FileWatcherTest)
#include "tst_filewatcher.moc"
