// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/favoritesblacklist.h"

#include "common/constants.h"
#include "common/messages.h"
#include "messagelog.h"
#include "world.h"

#include <QFile>
#include <QTest>

using Paths = QSet<QString>;

class FavoritesBlacklistTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void reads_data();
    void reads();
    void missingFile();
    void readsAtEachCall();
};

namespace
{
QString defaultWarning(const char *message)
{
    return QStringLiteral("warning default: %1 \"%2\"")
        .arg(QString::fromUtf8(message), Constants::FavoritesBlacklistFile);
}
}

void FavoritesBlacklistTest::init()
{
    World::reset();
}

void FavoritesBlacklistTest::reads_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<Paths>("paths");
    QTest::addColumn<QStringList>("messages");

    const QStringList notJson{defaultWarning(Messages::CannotParseJson)};
    const QStringList wrongFormat{defaultWarning(Messages::WrongBlacklistFormat)};
    QTest::newRow("empty array") << QByteArray("[]") << Paths() << QStringList();
    QTest::newRow("other types and duplicates")
        << QByteArray(R"(["a/b", 3, null, "a/b", {"x": "y"}, ["z"], true])") << Paths{QStringLiteral("a/b")}
        << QStringList();
    QTest::newRow("as written") << QByteArray(R"(["/a//b/", "A"])")
                                << Paths{QStringLiteral("/a//b/"), QStringLiteral("A")} << QStringList();
    QTest::newRow("empty string") << QByteArray(R"([""])") << Paths{QString()} << QStringList();
    QTest::newRow("object") << QByteArray("{}") << Paths() << wrongFormat;
    QTest::newRow("empty file") << QByteArray() << Paths() << notJson;
    QTest::newRow("syntax error") << QByteArray("[\"a\"") << Paths() << notJson;
    QTest::newRow("invalid UTF-8") << QByteArray("[\"\xff\xfe\"]") << Paths() << notJson;
}

void FavoritesBlacklistTest::reads()
{
    QFETCH(QByteArray, json);
    World::writeBlacklist(json);
    const MessageLog log;
    QTEST(readFavoritesBlacklist(), "paths");
    QTEST(log.take(), "messages");
}

void FavoritesBlacklistTest::missingFile()
{
    QVERIFY(QFile::remove(Constants::FavoritesBlacklistFile));
    const MessageLog log;
    QCOMPARE(readFavoritesBlacklist(), Paths());
    QCOMPARE(log.take(), QStringList{defaultWarning(Messages::CannotReadBlacklist)});
}

void FavoritesBlacklistTest::readsAtEachCall()
{
    World::writeBlacklist(R"(["a"])");
    QCOMPARE(readFavoritesBlacklist(), Paths{QStringLiteral("a")});
    World::writeBlacklist(R"(["b"])");
    QCOMPARE(readFavoritesBlacklist(), Paths{QStringLiteral("b")});
}

QTEST_GUILESS_MAIN(FavoritesBlacklistTest)
#include "tst_favoritesblacklist.moc"
