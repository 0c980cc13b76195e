// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "common/constants.h"
#include "growth.h"
#include "messagelog.h"
#include "models/favoritesmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QVector>

#include <malloc.h>

// The limits of registration files: what the library accepts, and how long it takes.
class LimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nesting_data();
    void nesting();
    void nestedObjects();
    void sixtyMegabytes();
    void size_data();
    void size();
    void warningsOfOneFile_data();
    void warningsOfOneFile();
    void warningsAreCountedForEachFile();
    void junkIsNotKept();
    void refusedEntriesAreNotKept();
    void replacedEntriesAreNotKept_data();
    void replacedEntriesAreNotKept();
    void entryOfRootIsKeptAlone();
    void unloadedFileIsNotKept();
    void catalogElsewhere_data();
    void catalogElsewhere();
    void noCatalogElsewhere_data();
    void noCatalogElsewhere();
};

namespace
{
const QString s_file = QStringLiteral("x.json");
const QString s_pathMissing = settingsWarning("Mandatory field \"path\" missing in entry on file", s_file);

int statusKiB(const char *field)
{
    QFile file(text("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("The process has no status");
    }
    const QByteArray status = file.readAll();
    const int start = status.indexOf(field) + int(qstrlen(field)) + 1;
    return status.mid(start, status.indexOf("kB", start) - start).trimmed().toInt();
}

/// Returns the resident memory after free memory was returned to the system.
int trimmedKiB()
{
    malloc_trim(0);
    return statusKiB("VmRSS:");
}

/// Resets the peak to the current resident memory.
void resetPeak()
{
    World::writeFile(text("/proc/self/clear_refs"), "5");
}

/// Returns a registration file of @p depth levels, with nested arrays in an entry.
QByteArray nestedFile(int depth)
{
    const int arrays = depth - 3; // the file, its entries and the entry are levels, too
    return R"({"entries": [{"path": "a", "deep": )" + QByteArray(arrays, '[') + QByteArray(arrays, ']') + "}]}";
}

/// Returns as many entries with long titles as fit into @p size bytes.
QByteArray fileOfSize(int size)
{
    const QByteArray title(4000, 'x');
    QByteArray json = "{\"entries\": [";
    json.reserve(size);
    for (int i = 0; json.size() + title.size() + 100 < size; ++i) {
        json += "{\"path\": \"page" + QByteArray::number(i % 50) + "/" + QByteArray::number(i)
                + "\", \"title\": \"" + title + "\"},";
    }
    return json + "{\"path\": \"last\"}]}";
}

/// @p count entries without a path, and one with a path.
QByteArray fileOfBadEntries(int count)
{
    return "{\"entries\": [" + QByteArray("0,").repeated(count) + "{\"path\": \"last\"}]}";
}

struct Load {
    qint64 time; ///< in nanoseconds, -1 if the tree does not match the file
    int peakKiB; ///< more memory than before the load
    int keptKiB; ///< the same after the unload
};

/// Measures a file of @p megabytes from its load to the deletion of its tree.
Load load(int megabytes)
{
    World::writeEntries(s_file, fileOfSize(megabytes * 1000 * 1000));
    const int before = trimmedKiB();
    resetPeak();
    CpuTimer timer;
    timer.start();
    bool isLoaded = false;
    {
        const PluginRegistry registry;
        isLoaded = registry.getItem({text("last")});
    }
    const qint64 time = timer.nsecsElapsed();
    const int peak = statusKiB("VmHWM:");
    World::removeEntries(s_file);
    return {isLoaded ? time : -1, peak - before, trimmedKiB() - before};
}

QByteArray fileWithCatalog(const QString &name)
{
    return "{\"translation_catalog\": \"" + name.toUtf8()
           + R"(", "entries": [{"path": "a", "title": "Plain", "translation_id": "test-both"}]})";
}

QString titleWithCatalog(const QString &name)
{
    World::writeEntries(s_file, fileWithCatalog(name));
    const PluginRegistry registry;
    return registry.getItem({text("a")})->title();
}

QString elsewhere()
{
    return QDir::tempPath() + text("/elsewhere");
}
}

void LimitsTest::init()
{
    World::reset();
}

void LimitsTest::nesting_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("1,023 levels") << 1023 << true;
    QTest::newRow("1,024 levels") << 1024 << true;
    QTest::newRow("1,025 levels") << 1025 << false;
}

void LimitsTest::nesting()
{
    QFETCH(int, depth);
    QFETCH(bool, accepted);
    World::writeEntries(s_file, nestedFile(depth));
    World::writeEntries(text("y.json"), R"({"entries": [{"path": "b"}]})");
    const MessageLog log;
    const PluginRegistry registry;
    const QString refusal = settingsWarning("Can't parse JSON file or file is empty:", s_file);
    QCOMPARE(log.take(), accepted ? QStringList() : QStringList{refusal});
    QCOMPARE(World::paths(registry.getItem({})), path(accepted ? "a/b" : "b"));
    if (accepted) {
        QVariant value = registry.getItem({text("a")})->data().value(text("deep"));
        int levels = 1;
        for (; !value.toList().isEmpty(); ++levels) {
            value = value.toList().at(0);
        }
        QCOMPARE(levels, depth - 3);
    }
}

void LimitsTest::nestedObjects()
{
    const int objects = 1024 - 3;
    QByteArray json = R"({"entries": [{"path": "a", "deep": )";
    for (int i = 0; i < objects - 1; ++i) {
        json += "{\"k\":";
    }
    World::writeEntries(s_file, json + "{}" + QByteArray(objects - 1, '}') + "}]}");
    const PluginRegistry registry;
    QVERIFY(registry.getItem({text("a")}));
    QVariant value = registry.getItem({text("a")})->data().value(text("deep"));
    for (int i = 0; i < objects - 1; ++i) {
        value = value.toMap().value(text("k"));
    }
    QCOMPARE(value, QVariant(QVariantMap()));
}

void LimitsTest::sixtyMegabytes()
{
    QVector<Load> halves;
    QVector<Load> wholes;
    const auto time = [&](int megabytes) {
        const Load last = load(megabytes);
        (megabytes == 30 ? halves : wholes).append(last);
        qInfo("%d MB: %lld ms, %d KiB, %d KiB kept", megabytes, last.time / 1000000, last.peakKiB, last.keptKiB);
        return last.time;
    };
    QVERIFY(Growth::isBelow(3, time, 30, 60));
    for (int i = 0; i < wholes.size() && !World::KeepsFreedMemory; ++i) {
        QVERIFY(wholes.at(i).peakKiB < 3 * halves.at(i).peakKiB);
        QVERIFY(wholes.at(i).peakKiB < 4 * 60000);
        QVERIFY(halves.at(i).keptKiB < 2048);
        QVERIFY(wholes.at(i).keptKiB < 2048);
    }
}

void LimitsTest::size_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("64 MiB") << (64 << 20) << true;
    QTest::newRow("64 MiB and a byte") << (64 << 20) + 1 << false;
}

void LimitsTest::size()
{
    QFETCH(int, size);
    QFETCH(bool, accepted);
    QByteArray json = R"({"entries": [{"path": "a"}]})";
    json += QByteArray(size - json.size(), ' ');
    World::writeEntries(s_file, json);
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(),
             accepted ? QStringList() : QStringList{settingsWarning("Can't read entries file", s_file)});
    QCOMPARE(registry.getItem({text("a")}) != nullptr, accepted);
}

void LimitsTest::warningsOfOneFile_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<QString>("rest");
    QTest::newRow("1,000") << 1000 << QString();
    QTest::newRow("1,001") << 1001 << text("1");
    QTest::newRow("half a million") << 500000 << text("499000");
}

void LimitsTest::warningsOfOneFile()
{
    QFETCH(int, entries);
    QFETCH(QString, rest);
    World::writeEntries(s_file, fileOfBadEntries(entries));
    QStringList expected;
    for (int i = 0; i < 1000; ++i) {
        expected.append(s_pathMissing);
    }
    if (!rest.isEmpty()) {
        expected.append(text("warning org.orvantaos.settings.framework: ") + rest
                        + text(" more entries without \"path\" in file \"x.json\""));
    }
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take(), expected);
    QVERIFY(registry.getItem({text("last")}));
}

void LimitsTest::warningsAreCountedForEachFile()
{
    World::writeEntries(text("a.json"), fileOfBadEntries(2000));
    World::writeEntries(s_file, fileOfBadEntries(3));
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(log.take().count(s_pathMissing), 3);
}

void LimitsTest::junkIsNotKept()
{
    World::writeEntries(s_file, R"({"entries": [{"path": "a"}], "junk": ")" + QByteArray(50000000, 'x') + "\"}");
    const int before = trimmedKiB();
    const PluginRegistry registry;
    QVERIFY(registry.getItem({text("a")}));
    const int kept = trimmedKiB() - before;
    QVERIFY2(World::KeepsFreedMemory || kept < 4096, qPrintable(QString::number(kept)));
}

void LimitsTest::refusedEntriesAreNotKept()
{
    const QByteArray refused = "{\"title\": \"" + QByteArray(4000, 'x') + "\"},";
    World::writeEntries(s_file, "{\"entries\": [" + refused.repeated(10000) + R"({"path": "a", "title": "A"}]})");
    const int before = trimmedKiB();
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(registry.getItem({text("a")})->title(), text("A"));
    QCOMPARE(log.take().size(), 1001);
    const int kept = trimmedKiB() - before;
    QVERIFY2(World::KeepsFreedMemory || kept < 4096, qPrintable(QString::number(kept)));
}

void LimitsTest::replacedEntriesAreNotKept_data()
{
    QTest::addColumn<QByteArray>("other");
    QTest::newRow("by the same file") << QByteArray();
    QTest::newRow("by another file") << QByteArray(R"({"entries": [{"path": "a", "title": "A"}]})");
}

void LimitsTest::replacedEntriesAreNotKept()
{
    QFETCH(QByteArray, other);
    const QByteArray entry = R"({"path": "a", "title": ")" + QByteArray(4000, 'x') + "\"},";
    const QByteArray last = other.isEmpty() ? R"({"path": "a", "title": "A"},)" : "";
    World::writeEntries(s_file, "{\"entries\": [" + entry.repeated(10000) + last + R"({"path": "b"}]})");
    if (!other.isEmpty()) {
        World::writeEntries(text("y.json"), other);
    }
    const int before = trimmedKiB();
    const PluginRegistry registry;
    QCOMPARE(registry.getItem({text("a")})->title(), text("A"));
    QCOMPARE(registry.getItem({text("b")})->fromFile(), s_file);
    const int kept = trimmedKiB() - before;
    QVERIFY2(World::KeepsFreedMemory || kept < 4096, qPrintable(QString::number(kept)));
}

void LimitsTest::entryOfRootIsKeptAlone()
{
    QByteArray json = fileOfSize(40000000);
    json.replace("\"last\"", "\"/\"");
    World::writeEntries(s_file, json);
    const int before = trimmedKiB();
    PluginRegistry registry;
    registry.removeEntriesForFile(s_file);
    QCOMPARE(registry.getItem({})->value(text("path")), QVariant(text("/")));
    const int kept = trimmedKiB() - before;
    QVERIFY2(World::KeepsFreedMemory || kept < 4096, qPrintable(QString::number(kept)));
}

// One of its nodes stays, because the entry of another file is below it.
void LimitsTest::unloadedFileIsNotKept()
{
    World::writeEntries(s_file, fileOfSize(50000000));
    World::writeEntries(text("y.json"), R"({"entries": [{"path": "last/child"}]})");
    const int before = trimmedKiB();
    PluginRegistry registry;
    registry.removeEntriesForFile(s_file);
    QCOMPARE(registry.getItem({text("last")})->fromFile(), s_file);
    QCOMPARE(registry.getItem({text("last")})->value(text("path")), QVariant(text("last")));
    const int kept = trimmedKiB() - before;
    QVERIFY2(World::KeepsFreedMemory || kept < 4096, qPrintable(QString::number(kept)));
}

void LimitsTest::catalogElsewhere_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("in a directory below") << text("below/sample");
    QTest::newRow("through the directory above") << text("../translations/sample");
    QTest::newRow("in another directory") << text("../../..") + elsewhere() + text("/sample");
    QTest::newRow("with an absolute path") << elsewhere() + text("/sample");
}

// The name of a catalog may lead out of the directory: a package could ship the same texts as its titles.
void LimitsTest::catalogElsewhere()
{
    QFETCH(QString, name);
    Catalogs::install("sample_eng_en", "sample_eng_en");
    const QString compiled = Catalogs::path("sample_eng_en");
    QDir().mkpath(elsewhere());
    QDir().mkpath(QFileInfo(compiled).path() + text("/below"));
    QFile::copy(compiled, elsewhere() + text("/sample_eng_en.qm"));
    QFile::copy(compiled, QFileInfo(compiled).path() + text("/below/sample_eng_en.qm"));
    const MessageLog log;
    QVERIFY(titleWithCatalog(name) != text("Plain"));
    QCOMPARE(log.take(), QStringList());
}

void LimitsTest::noCatalogElsewhere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isFile");
    QTest::newRow("device") << text("../../../dev/zero") << false;
    QTest::newRow("text") << text("../../../etc/os-release") << true;
    QTest::newRow("program") << text("../../../bin/sh") << true;
    QTest::newRow("directory") << text("..") << false;
    QTest::newRow("root") << text("/") << false;
    QTest::newRow("slashes") << text("////") << false;
    QTest::newRow("no such directory") << text("nowhere/nothing") << false;
}

void LimitsTest::noCatalogElsewhere()
{
    QFETCH(QString, name);
    QFETCH(bool, isFile);
    const MessageLog log;
    QCOMPARE(titleWithCatalog(name), text("Plain"));
    // The file is found under the names of both catalogs.
    const QString warning = settingsWarning("Can't use translation catalog",
                                            text("/usr/share/translations/") + name)
                            + text(" because it is damaged, or no compiled catalog");
    QCOMPARE(log.take(), isFile ? QStringList{warning} : QStringList());
}

QTEST_GUILESS_MAIN(LimitsTest)
#include "tst_limits.moc"
