// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "world.h"

#include "common/constants.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"

#include <mgconfitem.h>

#include <QDir>
#include <QFile>
#include <QStringList>

namespace
{
void requireSandbox()
{
    if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
        qFatal("This test writes into system directories: run it through scripts/sandbox");
    }
}
}

void World::writeFile(const QString &path, const QByteArray &content)
{
    requireSandbox();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Can't write %s", qPrintable(path));
    }
}

void World::writeEntries(const QString &fileName, const QByteArray &json)
{
    writeFile(Constants::EntriesDirectory + QLatin1Char('/') + fileName, json);
}

void World::removeEntries(const QString &fileName)
{
    requireSandbox();
    QFile::remove(Constants::EntriesDirectory + QLatin1Char('/') + fileName);
}

void World::writeBlacklist(const QByteArray &json)
{
    writeFile(Constants::FavoritesBlacklistFile, json);
}

void World::reset()
{
    requireSandbox();
    for (const QString &path : {Constants::EntriesDirectory, Constants::TranslationsDirectory}) {
        QDir directory(path);
        directory.removeRecursively();
        directory.mkpath(QStringLiteral("."));
    }
    writeBlacklist("[]");
    MGConfItem(Constants::MaskedSettingsKey).set({});
}

void World::rescan(PluginRegistry *registry)
{
    QMetaObject::invokeMethod(registry, "monitoredDirectoryChanged");
}

void World::setMasked(const QStringList &paths)
{
    requireSandbox();
    MGConfItem(Constants::MaskedSettingsKey).set(paths);
}

QStringList World::paths(TreeItem *root)
{
    QStringList paths;
    const QList<TreeItem *> items = root->getSubitems(TreeItem::orderLessThan, -1);
    for (TreeItem *item : items) {
        paths.append(item->location(root).join(QLatin1Char('/')));
    }
    paths.sort();
    return paths;
}

QStringList World::brokenInvariants(TreeItem *root)
{
    QStringList broken;
    const QList<TreeItem *> items = root->getSubitems(TreeItem::orderLessThan, -1);
    for (TreeItem *item : items) {
        if (!item->parentItem() || item->parentItem()->lookup({item->name()}) != item) {
            broken.append(item->location().join(QLatin1Char('/')));
        }
    }
    return broken;
}

QByteArray declaring(const QByteArray &title, const QList<QByteArray> &paths)
{
    QByteArray json = "{\"entries\": [";
    for (const QByteArray &path : paths) {
        json += "{\"path\": \"" + path + "\", \"title\": \"" + title + "\"},";
    }
    json.chop(paths.isEmpty() ? 0 : 1);
    return json + "]}";
}

QStringList paths(const PluginRegistry &registry)
{
    return World::paths(registry.getItem({}));
}
