// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"
#include "text.h"
#include "world.h"

#include <QTest>

#include <unistd.h>

namespace
{
constexpr uid_t Root = 0;
constexpr uid_t Nobody = 65534;

uid_t s_effectiveUser = Root;
}

// The dynamic linker finds this function before the C library's. In the sandbox no process can change its user.
extern "C" uid_t geteuid() noexcept
{
    return s_effectiveUser;
}

class EffectiveUserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isReadForEachLoad_data();
    void isReadForEachLoad();
};

void EffectiveUserTest::init()
{
    s_effectiveUser = Root;
    World::reset();
}

void EffectiveUserTest::isReadForEachLoad_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("forRoot");
    QTest::newRow("required group") << QByteArray("required_group") << true;
    QTest::newRow("disabled group") << QByteArray("disabled_group") << false;
}

void EffectiveUserTest::isReadForEachLoad()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, forRoot);
    const QString file = text("a.json");
    World::writeEntries(file, "{\"" + key + "\": \"root\", \"entries\": [{\"path\": \"a\"}]}");
    PluginRegistry registry;
    for (const uid_t user : {Root, Nobody, Root}) {
        s_effectiveUser = user;
        registry.removeEntriesForFile(file);
        registry.addEntriesForFile(file);
        QCOMPARE(registry.getItem(path("a")) != nullptr, (user == Root) == forRoot);
    }
}

QTEST_GUILESS_MAIN(EffectiveUserTest)

#include "tst_effectiveuser.moc"
