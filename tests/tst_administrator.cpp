// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

// Values that an administrator sets and locks in a dconf profile.
class AdministratorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void maskedEntriesAreHidden();
    void userCannotShowThem();

private:
    const QTemporaryDir m_directory;
};

/// Creates a system database with a locked list of masked entries, and a profile that uses it. Must be called before
/// the first key is read, because dconf reads the profile once.
void AdministratorTest::initTestCase()
{
    World::writeBlacklist("[]");
    const QDir directory(m_directory.path());
    QVERIFY(directory.mkpath(text("keys/locks")));
    World::writeFile(directory.filePath(text("keys/settings")),
                     "[apps/velka-settings]\nmaskedSettings=['page/secret']\nfavorites=['page/open']\n");
    World::writeFile(directory.filePath(text("keys/locks/settings")), "/apps/velka-settings/maskedSettings\n");
    const QString database = directory.filePath(text("site"));
    QCOMPARE(QProcess::execute(text("dconf"), {text("compile"), database, directory.filePath(text("keys"))}), 0);
    const QString profile = directory.filePath(text("profile"));
    World::writeFile(profile, "user-db:user\nfile-db:" + database.toUtf8() + "\n");
    qputenv("DCONF_PROFILE", profile.toUtf8());
}

void AdministratorTest::maskedEntriesAreHidden()
{
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "page/secret"}, {"path": "page/open"}]})");
    const PluginRegistry registry;
    QCOMPARE(World::paths(registry.getItem({})), (QStringList{text("page"), text("page/open")}));
    // A value that is not locked is a default.
    QCOMPARE(MGConfItem(text("/apps/velka-settings/favorites")).value().toStringList(),
             QStringList{text("page/open")});
}

void AdministratorTest::userCannotShowThem()
{
    const PluginRegistry registry;
    MGConfItem masked(text("/apps/velka-settings/maskedSettings"));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(text("^MGConfItem: cannot write \"%1\": ").arg(masked.key())));
    masked.set(QStringList{text("page/open")});
    QCOMPARE(masked.value().toStringList(), QStringList{text("page/secret")});
    QCOMPARE(World::paths(registry.getItem({})), (QStringList{text("page"), text("page/open")}));
}

QTEST_GUILESS_MAIN(AdministratorTest)
#include "tst_administrator.moc"
