// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/constants.h"
#include "registry/pluginregistry.h"
#include "world.h"

#include <QByteArrayList>
#include <QDir>

/// Registration files that the registry of this process loads at once.
namespace EntryFiles
{
inline PluginRegistry *registry()
{
    return PluginRegistry::instance();
}

inline QByteArray fileWith(const QByteArrayList &entries)
{
    return "{\"entries\": [" + entries.join(", ") + "]}";
}

inline void install(const QString &file, const QByteArrayList &entries)
{
    World::writeEntries(file, fileWith(entries));
    World::rescan(registry());
}

inline void uninstall(const QString &file)
{
    World::removeEntries(file);
    World::rescan(registry());
}

/// Removes all files, catalogs and masks, and empties the tree.
inline void reset()
{
    World::writeBlacklist("[]");
    World::setMasked({});
    const QStringList files = QDir(Constants::EntriesDirectory).entryList(QDir::Files);
    for (const QString &file : files) {
        World::removeEntries(file);
    }
    World::rescan(registry());
    World::reset();
}

/// Loads another version of a file in one batch, as a change of the masked entries does.
inline void reload(const QString &file, const QByteArrayList &entries)
{
    registry()->removeEntriesForFile(file);
    World::writeEntries(file, fileWith(entries));
    registry()->addEntriesForFile(file);
    Q_EMIT registry()->contentChanged();
}
}
