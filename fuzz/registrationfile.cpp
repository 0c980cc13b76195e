// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a registration file. It is loaded, all of its nodes are checked, and it is unloaded.

#include "harness.h"

#include "actions/quickactionreader.h"
#include "models/favoritesfilter.h"
#include "registry/entrytree.h"
#include "registry/treeitem.h"

namespace
{
const QString s_file = QStringLiteral("x.json");

// The checks of a node take time for each of its ancestors.
constexpr int MaxNodes = 40;
constexpr int MaxLevels = 16;

EntrySources sourcesIn(const Scratch &scratch)
{
    EntrySources sources;
    sources.entriesDirectory = scratch.path();
    sources.translationsDirectory = scratch.path();
    sources.isMember = [](uid_t, const QString &group) { return group.startsWith(QLatin1Char('m')); };
    return sources;
}

void lookAt(TreeItem *item, TreeItem *root)
{
    require(item->parentItem() && item->parentItem()->lookup({item->name()}) == item,
            "a node is below its parent, under its name");
    const QStringList location = item->location();
    require(root->lookup(location) == item, "a node is found at its location");
    require(location.size() + 1 == item->depth(nullptr), "a node is as deep as its location is long");
    require(!item->title().isEmpty(), "a node has a title");
    require(item->data().value(QStringLiteral("type")) == item->value(QStringLiteral("type")),
            "a value is one of the data");
    item->shortTitle();
    item->icon();
    item->controlIcon();
    const FavoritesFilter filter(FavoritesFilter::kinds(), {item->value(QStringLiteral("path")).toString()});
    filter.admits(item);
    QuickActionReader(nullptr).remoteActionString(item->value(QStringLiteral("params")).toMap());
}

void lookAtLevels(TreeItem *root, int nodes)
{
    int counted = 0;
    for (int level = 1; level < MaxLevels; ++level) {
        const int size = root->itemsAtLevel(TreeItem::orderLessThan, level).size();
        if (size == 0) {
            require(counted == nodes, "each node is at one level");
            return;
        }
        counted += size;
        require(root->count(level) == counted, "nodes are counted down to a level");
    }
}

void lookAtAll(TreeItem *root)
{
    const QList<TreeItem *> items = root->getSubitems(TreeItem::orderLessThan, -1);
    require(items.size() == root->count(-1), "each node is listed once");
    for (TreeItem *item : items.mid(0, MaxNodes)) {
        lookAt(item, root);
    }
    lookAtLevels(root, items.size());
    root->dumpTree(0);
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Scratch scratch;
    const QByteArray json(reinterpret_cast<const char *>(data), int(size));
    const LeakPermission permission(!isJson(QByteArray(json).replace('\r', "")));
    scratch.write(s_file, json);
    EntryTree tree(sourcesIn(scratch), nullptr);
    tree.load(s_file);
    lookAtAll(tree.root());
    tree.unload({s_file});
    require(tree.root()->count() == 0, "a file leaves nothing behind");
    tree.load(s_file);
    return 0;
}
