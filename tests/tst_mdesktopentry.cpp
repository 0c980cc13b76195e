// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nodescriptors.h"
#include "text.h"

#include <mdesktopentry.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

class MDesktopEntryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isValid_data();
    void isValid();
    void findsKeys_data();
    void findsKeys();
    void resolvesEscapes_data();
    void resolvesEscapes();
    void translates_data();
    void translates();
    void keepsItsContent();
    void reportsUnreadableFiles_data();
    void reportsUnreadableFiles();
    void reportsMissingDescriptors();
    void limitsTheSize_data();
    void limitsTheSize();

private:
    QString write(const QByteArray &content) const;

    const QTemporaryDir m_directory;
};

namespace
{
QByteArray entry(const QByteArray &lines)
{
    return "[Desktop Entry]\nType=Application\nName=Plain\n" + lines;
}
}

void MDesktopEntryTest::init()
{
    qputenv("LANGUAGE", "C");
}

QString MDesktopEntryTest::write(const QByteArray &content) const
{
    QFile file(m_directory.filePath(text("test.desktop")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Can't write %s", qPrintable(file.fileName()));
    }
    return file.fileName();
}

void MDesktopEntryTest::isValid_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("read");

    QTest::newRow("least") << entry("") << true << true;
    QTest::newRow("comments") << QByteArray("# a\n\n" + entry("# b\n\n")) << true << true;
    QTest::newRow("line ends of Windows") << entry("").replace("\n", "\r\n") << true << true;
    QTest::newRow("last line without an end") << entry("Icon=a") << true << true;
    QTest::newRow("no Type") << QByteArrayLiteral("[Desktop Entry]\nName=A\n") << false << true;
    QTest::newRow("no Name") << QByteArrayLiteral("[Desktop Entry]\nType=Application\n") << false << true;
    QTest::newRow("other group") << QByteArrayLiteral("[Other]\nType=Application\nName=A\n") << false << true;
    QTest::newRow("empty") << QByteArray() << false << true;
    QTest::newRow("no group") << QByteArrayLiteral("Type=Application\nName=A\n") << false << false;
    QTest::newRow("no key") << entry("nonsense\n") << false << false;
    QTest::newRow("bytes") << QByteArray("\x7f"
                                         "ELF\0\x1\xff\xfe",
                                         8)
                           << false << false;
}

void MDesktopEntryTest::isValid()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, valid);
    QFETCH(bool, read);
    const MDesktopEntry entry(write(content));
    QCOMPARE(entry.isValid(), valid);
    QCOMPARE(entry.errorString().isEmpty(), read);
    QVERIFY(read || !entry.containsGroup(text("Desktop Entry")));
}

void MDesktopEntryTest::findsKeys_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");

    QTest::newRow("main group") << text("Desktop Entry") << text("Type") << text("Application");
    QTest::newRow("other group") << text("X-Application") << text("Permissions") << text("A;B;");
    QTest::newRow("slash in a group") << text("A/B") << text("Key") << text("slash");
    QTest::newRow("empty value") << text("X-Application") << text("Empty") << text("");
    QTest::newRow("last of two") << text("X-Application") << text("Twice") << text("2");
    QTest::newRow("missing key") << text("X-Application") << text("Type") << QString();
    QTest::newRow("missing group") << text("X-Other") << text("Type") << QString();
    QTest::newRow("other case") << text("x-application") << text("permissions") << QString();
    QTest::newRow("no group") << QString() << text("Type") << QString();
    QTest::newRow("no key") << text("X-Application") << QString() << QString();
    QTest::newRow("nothing") << QString() << QString() << QString();
}

void MDesktopEntryTest::findsKeys()
{
    QFETCH(QString, group);
    QFETCH(QString, key);
    QFETCH(QString, value);
    const MDesktopEntry entry(write(::entry("[X-Application]\nPermissions=A;B;\nEmpty=\nTwice=1\nTwice=2\n"
                                            "[A/B]\nKey=slash\n")));
    const QString path = group + QLatin1Char('/') + key;
    QCOMPARE(entry.contains(group, key), !value.isNull());
    QCOMPARE(entry.contains(path), !value.isNull());
    QCOMPARE(entry.value(group, key), value);
    QCOMPARE(entry.value(group, key).isNull(), value.isNull());
    QCOMPARE(entry.value(path), value);
    QCOMPARE(entry.localizedValue(group, key), value);
}

void MDesktopEntryTest::resolvesEscapes_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QString>("value");

    QTest::newRow("none") << QByteArrayLiteral("a b") << text("a b");
    QTest::newRow("all") << QByteArrayLiteral("\\sa\\nb\\tc\\rd\\\\e") << text(" a\nb\tc\rd\\e");
    QTest::newRow("before the value") << QByteArrayLiteral(" \t a") << text("a");
    QTest::newRow("equals sign") << QByteArrayLiteral("a=b") << text("a=b");
    QTest::newRow("number sign") << QByteArrayLiteral("a # b") << text("a # b");
    QTest::newRow("UTF-8") << QByteArrayLiteral("gr\xc3\xbcn") << text("gr\xfcn");
    QTest::newRow("list's escape") << QByteArrayLiteral("a\\;b;c") << text("a\\;b;c");
    QTest::newRow("unknown escape") << QByteArrayLiteral("sh -c \\$HOME") << text("sh -c \\$HOME");
    QTest::newRow("unfinished escape") << QByteArrayLiteral("a\\") << text("a\\");
    QTest::newRow("not UTF-8") << QByteArrayLiteral("gr\xfcn") << QString::fromUtf8("gr\xfcn");
}

void MDesktopEntryTest::resolvesEscapes()
{
    QFETCH(QByteArray, written);
    QFETCH(QString, value);
    const MDesktopEntry entry(write(::entry("Comment=" + written + "\n")));
    QVERIFY(entry.isValid());
    QCOMPARE(entry.value(text("Desktop Entry/Comment")), value);
    QCOMPARE(entry.localizedValue(text("Desktop Entry"), text("Comment")), value);
}

void MDesktopEntryTest::translates_data()
{
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<QString>("name");

    QTest::newRow("none") << QByteArrayLiteral("C") << text("Plain");
    QTest::newRow("language") << QByteArrayLiteral("de") << text("German");
    QTest::newRow("country") << QByteArrayLiteral("de_AT.UTF-8") << text("Austrian");
    QTest::newRow("other country") << QByteArrayLiteral("de_CH.UTF-8") << text("German");
    QTest::newRow("script") << QByteArrayLiteral("sr_RS@latin") << text("Latin");
    QTest::newRow("without the script") << QByteArrayLiteral("sr_RS") << text("Serbian");
    QTest::newRow("second choice") << QByteArrayLiteral("fi:de") << text("German");
    QTest::newRow("untranslated") << QByteArrayLiteral("fi") << text("Plain");
}

void MDesktopEntryTest::translates()
{
    QFETCH(QByteArray, language);
    QFETCH(QString, name);
    const QString path = write(
        entry("Name[de]=German\nName[de_AT]=Austrian\nName[sr]=Serbian\nName[sr@latin]=Latin\n"));

    qputenv("LANGUAGE", language);
    const MDesktopEntry listed(path);
    QCOMPARE(listed.localizedValue(text("Desktop Entry"), text("Name")), name);
    QCOMPARE(listed.value(text("Desktop Entry"), text("Name")), text("Plain"));

    if (language.contains(':')) {
        return;
    }
    qunsetenv("LANGUAGE");
    qputenv("LC_ALL", language);
    const MDesktopEntry single(path);
    const QString read = single.localizedValue(text("Desktop Entry"), text("Name"));
    qunsetenv("LC_ALL");
    QCOMPARE(read, name);
}

void MDesktopEntryTest::keepsItsContent()
{
    const QString path = write(entry("Icon=first\n"));
    const MDesktopEntry before(path);
    write(entry("Icon=second\n"));
    const MDesktopEntry after(path);
    QCOMPARE(before.value(text("Desktop Entry/Icon")), text("first"));
    QCOMPARE(after.value(text("Desktop Entry/Icon")), text("second"));
    QCOMPARE(after.fileName(), path);
}

void MDesktopEntryTest::reportsUnreadableFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("error");

    const QString directory = m_directory.path();
    const QString pipe = directory + text("/pipe.desktop");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString loop = directory + text("/loop.desktop");
    QVERIFY(QFile::link(loop, loop));

    QTest::newRow("no name") << QString() << text("No such file or directory");
    QTest::newRow("no file") << text("/nowhere/a.desktop") << text("No such file or directory");
    QTest::newRow("directory") << directory << text("not a regular file");
    QTest::newRow("pipe without a writer") << pipe << text("not a regular file");
    QTest::newRow("endless device") << text("/dev/zero") << text("not a regular file");
    QTest::newRow("loop of links") << loop << text("Too many levels of symbolic links");
}

void MDesktopEntryTest::reportsUnreadableFiles()
{
    QFETCH(QString, path);
    QFETCH(QString, error);
    const MDesktopEntry entry(path);
    QVERIFY(!entry.isValid());
    QCOMPARE(entry.errorString(), error);
    QVERIFY(!entry.isErrorTemporary());
}

void MDesktopEntryTest::reportsMissingDescriptors()
{
    const QString path = write(entry(""));
    const NoDescriptors shortage;
    const MDesktopEntry unread(path);
    QVERIFY(!unread.isValid());
    QCOMPARE(unread.errorString(), text("Too many open files"));
    QVERIFY(unread.isErrorTemporary());
}

void MDesktopEntryTest::limitsTheSize_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("valid");
    QTest::newRow("mebibyte") << 1024 * 1024 << true;
    QTest::newRow("more") << 1024 * 1024 + 1 << false;
}

void MDesktopEntryTest::limitsTheSize()
{
    QFETCH(int, size);
    QFETCH(bool, valid);
    const MDesktopEntry read(write(entry("Comment=").leftJustified(size, 'a')));
    QCOMPARE(read.isValid(), valid);
    QCOMPARE(read.errorString(), valid ? QString() : text("larger than 1048576 bytes"));
}

QTEST_GUILESS_MAIN(MDesktopEntryTest)
#include "tst_mdesktopentry.moc"
