// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a desktop file, as the launcher and the list of permissions read it.

#include "harness.h"

#include "applications/desktopfiles.h"

#include <launcheritem.h>
#include <mdesktopentry.h>

/// Only the model of the launcher can create items. This class replaces it.
class LauncherFolderModelPrivate
{
public:
    static std::unique_ptr<LauncherItem> createItem(const QString &path)
    {
        return std::unique_ptr<LauncherItem>(
            new LauncherItem(QStringLiteral("x.desktop"), std::make_unique<const MDesktopEntry>(path), nullptr));
    }
};

namespace
{
const QString s_file = QStringLiteral("applications/x.desktop");
const QString s_mainGroup = QStringLiteral("Desktop Entry");

/// Returns the directory of all applications.
const Scratch &dataDirectory()
{
    static const Scratch scratch;
    static const bool made = (scratch.makeDirectory(QStringLiteral("applications")), true);
    Q_UNUSED(made)
    return scratch;
}

void readEntry()
{
    const MDesktopEntry entry(dataDirectory().path(s_file));
    for (const QString &group : {s_mainGroup, QStringLiteral("X-Tarnhold"), QStringLiteral("X-Application")}) {
        for (const QString &key : {QStringLiteral("Name"), QStringLiteral("Type"), QStringLiteral("Sandboxing"),
                                   QStringLiteral("Permissions"), QStringLiteral("Name[de]")}) {
            const bool there = entry.contains(group, key);
            const QString path = group + QLatin1Char('/') + key;
            require(!there || entry.containsGroup(group), "a key is in a group");
            require(entry.contains(path) == there, "a key is named in two ways");
            require(entry.value(path) == entry.value(group, key), "a value is named in two ways");
            require(there || entry.value(group, key).isNull(), "what is missing is null");
            require(there || entry.localizedValue(group, key).isNull() || entry.containsGroup(group),
                    "a translation is in a group");
        }
    }
    require(entry.errorString().isEmpty() || !entry.containsGroup(s_mainGroup), "a broken file has no keys");
}

void readItem()
{
    const auto item = LauncherFolderModelPrivate::createItem(dataDirectory().path(s_file));
    require(item->fileID() == QLatin1String("x.desktop"), "an application has the id of its file");
    item->isValid();
    item->title();
    item->iconId();
    item->isSandboxed();
    item->dBusServiceName();
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool located = qputenv("XDG_DATA_HOME", dataDirectory().path().toUtf8())
                                && qputenv("XDG_DATA_DIRS", "/nonexistent") && qputenv("LC_ALL", "de_DE.UTF-8");
    require(located, "the directory can be named");
    dataDirectory().write(s_file, {reinterpret_cast<const char *>(data), int(size)});
    readEntry();
    readItem();
    requestedPermissions(QStringLiteral("x"));
    return 0;
}
