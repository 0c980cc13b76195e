// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "messagelog.h"
#include "text.h"

#include <launcherfoldermodel.h>
#include <mdesktopentry.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTest>

// Compares the desktop files in desktopfiles/, which are from packages of Debian, with a second, plain reader.
class RealDesktopFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsThem_data();
    void readsThem();
    void listsThem();
};

using Values = QHash<QString, QString>; // of the main group

namespace
{
Values readPlainly(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Can't read %s", qPrintable(path));
    }
    Values values;
    QString group;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const int equals = line.indexOf(QLatin1Char('='));
        if (line.startsWith(QLatin1Char('['))) {
            group = line.trimmed();
        } else if (equals > 0 && group == text("[Desktop Entry]")) {
            values.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
        }
    }
    return values;
}

QStringList allFiles(const QString &directory)
{
    QStringList paths;
    QDirIterator it(directory, {text("*.desktop")}, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        paths.append(it.next());
    }
    return paths;
}

/// Returns the data directories of all packages.
QStringList dataDirectories()
{
    QStringList directories;
    const QDir packages(text(VELKA_DESKTOP_FILES));
    for (const QString &package : packages.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        directories.append(packages.filePath(package + text("/usr/share")));
    }
    return directories;
}

QStringList applicationFiles()
{
    QStringList paths;
    for (const QString &directory : dataDirectories()) {
        paths.append(allFiles(directory + text("/applications")));
    }
    return paths;
}

QStringList applicationNames()
{
    QStringList names;
    for (const QString &path : applicationFiles()) {
        const Values values = readPlainly(path);
        if (values.value(text("Type")) == text("Application") && values.value(text("NoDisplay")) != text("true")
            && values.value(text("Hidden")) != text("true")) {
            names.append(values.value(text("Name")));
        }
    }
    names.sort();
    return names;
}
}

void RealDesktopFilesTest::readsThem_data()
{
    QTest::addColumn<QByteArray>("language");
    QTest::newRow("untranslated") << QByteArrayLiteral("C");
    QTest::newRow("German") << QByteArrayLiteral("de");
    QTest::newRow("Japanese") << QByteArrayLiteral("ja");
}

void RealDesktopFilesTest::readsThem()
{
    QFETCH(QByteArray, language);
    qputenv("LANGUAGE", language);
    const MessageLog log;
    const QString translated = text("Name[%1]").arg(QString::fromLatin1(language));
    const QStringList paths = allFiles(text(VELKA_DESKTOP_FILES));
    QCOMPARE(paths.size(), 101);
    QStringList unreadable;
    for (const QString &path : paths) {
        const MDesktopEntry entry(path);
        if (!entry.errorString().isEmpty()) {
            unreadable.append(QFileInfo(path).fileName());
            continue;
        }
        const Values values = readPlainly(path);
        const bool isComplete = values.contains(text("Type")) && values.contains(text("Name"));
        QVERIFY2(entry.isValid() == isComplete, qPrintable(path));
        const QString name = values.value(text("Name"));
        QCOMPARE(entry.value(text("Desktop Entry/Name")), name);
        QCOMPARE(entry.localizedValue(text("Desktop Entry"), text("Name")), values.value(translated, name));
        for (const char *key : {"Type", "Icon", "NoDisplay", "Categories", "MimeType"}) {
            QCOMPARE(entry.value(text("Desktop Entry"), text(key)), values.value(text(key)));
        }
    }
    // The values of this file are in no group.
    QCOMPARE(unreadable, QStringList{text("kcmtrash.desktop")});
    QCOMPARE(MessageLog::take(), QStringList());
}

void RealDesktopFilesTest::listsThem()
{
    qputenv("LANGUAGE", "C");
    const MessageLog log;
    const Applications noUser;
    qputenv("XDG_DATA_DIRS", QFile::encodeName(dataDirectories().join(QLatin1Char(':'))));
    const LauncherFolderModel model;
    QStringList names;
    for (int row = 0; row < model.itemCount(); ++row) {
        names.append(itemAt(model, row)->title());
    }
    names.sort();
    QCOMPARE(names.size(), 27);
    QCOMPARE(names, applicationNames());
    QCOMPARE(MessageLog::take(), QStringList());
}

QTEST_GUILESS_MAIN(RealDesktopFilesTest)
#include "tst_realdesktopfiles.moc"
