// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "favoritesedits.h"

#include "dconftool.h"
#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>

#include <QTest>

#include <glib.h>

#include <atomic>

namespace
{
std::atomic<bool> s_counts{false};
std::atomic<int> s_warnings{0};

GLogWriterOutput countWarning(GLogLevelFlags level, const GLogField *fields, gsize count, gpointer)
{
    if (!s_counts) {
        return g_log_writer_default(level, fields, count, nullptr);
    }
    s_warnings += level & G_LOG_LEVEL_WARNING ? 1 : 0;
    return G_LOG_WRITER_HANDLED;
}
}

void favoritesEdits()
{
    QTest::addColumn<FavoritesEdit>("edit");
    QTest::newRow("add") << FavoritesEdit([](WatchedFavorites *model) { (*model)->addFavorite(text("d")); });
    QTest::newRow("remove") << FavoritesEdit([](WatchedFavorites *model) { (*model)->removeFavorite(text("b")); });
    QTest::newRow("move") << FavoritesEdit([](WatchedFavorites *model) { (*model)->move(0, 2); });
    QTest::newRow("reset") << FavoritesEdit([](WatchedFavorites *) { storeFavorites({}); });
}

void storeThreeFavorites()
{
    World::reset();
    World::rescan(PluginRegistry::instance());
    declareSections(path("a/b/c/d"));
    storeUserModified(true);
    storeFavorites(path("a/b/c"));
    waitForWrites();
    QVERIFY(areThreeFavoritesStored());
    settle(); // until the service has replied
}

bool areThreeFavoritesStored()
{
    return storedFavorites() == path("a/b/c")
           && stored(WatchedFavorites::keyOfTests()) == QByteArrayLiteral("['a', 'b', 'c']");
}

bool pagesFollowTheRegistry()
{
    PluginRegistry *registry = PluginRegistry::instance();
    World::rescan(registry);
    SettingsModel page;
    page.setDepth(1);
    const int before = page.count();
    World::writeEntries(text("later.json"), R"({"entries": [{"path": "later"}]})");
    World::rescan(registry);
    const bool came = page.count() == before + 1;
    World::removeEntries(text("later.json"));
    World::rescan(registry);
    return came && page.count() == before;
}

GLibWarnings::GLibWarnings()
{
    // Can only be set once
    static const bool isSet = (g_log_set_writer_func(countWarning, nullptr, nullptr), true);
    Q_UNUSED(isSet)
    s_warnings = 0;
    s_counts = true;
}

GLibWarnings::~GLibWarnings()
{
    s_counts = false;
}

int GLibWarnings::count()
{
    return s_warnings;
}
