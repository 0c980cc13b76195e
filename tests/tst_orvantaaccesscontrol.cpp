// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "orvantaaccesscontrol.h"

#include <QProcess>
#include <QTest>

#include <unistd.h>

namespace
{
QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
}

QStringList databaseLines(const QStringList &query)
{
    return output(QStringLiteral("getent"), query).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString field(const QString &databaseLine, int index)
{
    return databaseLine.section(QLatin1Char(':'), index, index);
}

bool hasGroup(uid_t uid, const QString &group)
{
    return orvanta_access_control_hasgroup(uid, group.toLocal8Bit().constData()) != 0;
}
}

class OrvantaAccessControlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesWithTheDatabase_data();
    void agreesWithTheDatabase();
    void currentUser();
    void unknownUser();
    void unknownGroup_data();
    void unknownGroup();
};

void OrvantaAccessControlTest::agreesWithTheDatabase_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<uint>("uid");

    const QStringList users = databaseLines({QStringLiteral("passwd")});
    for (const QString &user : users) {
        QTest::newRow(qPrintable(field(user, 0))) << field(user, 0) << field(user, 2).toUInt();
    }
}

void OrvantaAccessControlTest::agreesWithTheDatabase()
{
    QFETCH(QString, user);
    QFETCH(uint, uid);
    const QString names = output(QStringLiteral("id"), {QStringLiteral("-Gn"), user});
    const QStringList expected = names.split(QLatin1Char(' '));

    int found = 0;
    const QStringList groups = databaseLines({QStringLiteral("group")});
    for (const QString &line : groups) {
        const QString group = field(line, 0);
        QVERIFY2(hasGroup(uid, group) == expected.contains(group), qPrintable(group));
        found += hasGroup(uid, group) ? 1 : 0;
    }
    QCOMPARE(found, expected.size());
}

void OrvantaAccessControlTest::currentUser()
{
    const QStringList group = databaseLines({QStringLiteral("group"), QString::number(getegid())});
    QCOMPARE(group.size(), 1);
    QVERIFY(hasGroup(geteuid(), field(group.first(), 0)));
}

void OrvantaAccessControlTest::unknownUser()
{
    constexpr uint unknown = 3999999999;
    QVERIFY(databaseLines({QStringLiteral("passwd"), QString::number(unknown)}).isEmpty());
    QVERIFY(!hasGroup(unknown, QStringLiteral("root")));
    QVERIFY(!hasGroup(unknown, QStringLiteral("nogroup")));
}

void OrvantaAccessControlTest::unknownGroup_data()
{
    QTest::addColumn<QByteArray>("group");

    QTest::newRow("null") << QByteArray();
    QTest::newRow("empty") << QByteArrayLiteral("");
    QTest::newRow("unknown") << QByteArrayLiteral("no-such-group");
    QTest::newRow("number") << QByteArrayLiteral("0");
    QTest::newRow("other case") << QByteArrayLiteral("ROOT");
    QTest::newRow("not UTF-8") << QByteArrayLiteral("\xff\xfe");
    QTest::newRow("line of the database") << QByteArrayLiteral("root:x:0:");
    QTest::newRow("long") << QByteArray(1000000, 'a');
}

void OrvantaAccessControlTest::unknownGroup()
{
    QFETCH(QByteArray, group);
    const char *const name = group.isNull() ? nullptr : group.constData();
    QCOMPARE(orvanta_access_control_hasgroup(0, name), 0);
    QCOMPARE(orvanta_access_control_hasgroup(geteuid(), name), 0);
}

QTEST_GUILESS_MAIN(OrvantaAccessControlTest)

#include "tst_orvantaaccesscontrol.moc"
