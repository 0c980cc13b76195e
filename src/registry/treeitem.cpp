// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem.h"

#include "common/constants.h"
#include "common/logging.h"
#include "common/logtext.h"
#include "registry/titles.h"
#include "registry/treeitem_p.h"

#include <algorithm>

namespace
{
QVector<const TreeItem *> childrenOf(const QVector<const TreeItem *> &items)
{
    QVector<const TreeItem *> children;
    for (const TreeItem *item : items) {
        const QVector<TreeItem *> &own = TreeItemPrivate::of(item)->children;
        std::copy(own.cbegin(), own.cend(), std::back_inserter(children));
    }
    return children;
}
}

TreeItem::TreeItem(const QString &name, const QVariantMap &data)
    : d(std::make_unique<TreeItemPrivate>(this, name, NodeData(data)))
{
}

TreeItem::~TreeItem()
{
    d->deleteDescendants();
    d->leaveIndex();
}

QString TreeItem::name() const
{
    return d->name;
}

QString TreeItem::type() const
{
    const QVariant type = value(QStringLiteral("type"));
    return type.isNull() ? Constants::SectionType : type.toString();
}

QString TreeItem::title() const
{
    return titleOf(*this).text;
}

QString TreeItem::shortTitle() const
{
    return shortTitleOf(*this).text;
}

QString TreeItem::icon() const
{
    return value(QStringLiteral("icon")).toString();
}

QString TreeItem::controlIcon() const
{
    return value(QStringLiteral("controlIcon")).toString();
}

int TreeItem::count(int depth) const
{
    if (depth == 1) {
        return d->children.size();
    }
    int total = 0;
    QVector<const TreeItem *> level{this};
    for (; depth != 0 && !level.isEmpty(); --depth) {
        level = childrenOf(level);
        total += level.size();
    }
    return total;
}

QStringList TreeItem::location(TreeItem *top) const
{
    QStringList names;
    for (const TreeItem *item = this; item != top && item->d->parent; item = item->d->parent) {
        names.append(item->d->name);
    }
    std::reverse(names.begin(), names.end());
    return names;
}

QVariantMap TreeItem::data() const
{
    return d->data.toMap();
}

QVariant TreeItem::value(const QString &key) const
{
    return d->data.value(key);
}

TreeItem *TreeItem::parentItem() const
{
    return d->parent;
}

bool TreeItem::isDeclared() const
{
    return !fromFile().isNull();
}

QString TreeItem::fromFile() const
{
    return d->data.fromFile();
}

int TreeItem::order() const
{
    return d->data.order();
}

void TreeItem::addChild(TreeItem *child)
{
    d->addChild(child);
}

void TreeItem::removeChild(TreeItem *child)
{
    d->removeChild(child);
}

TreeItem *TreeItem::insertItem(const QStringList &path, const QVariantMap &data)
{
    return d->insert(path, NodeData(data));
}

void TreeItem::clearData()
{
    d->setData({});
}

TreeItem *TreeItem::lookup(const QStringList &path)
{
    TreeItem *item = this;
    for (int level = 0; item && level < path.size(); ++level) {
        qCInfo(lcSettings) << "lookup item path:" << quoted(path.mid(level))
                           << "child keys:" << quoted(item->d->childNames());
        item = item->d->child(path.at(level));
    }
    return item;
}

void TreeItem::removeItems(const Predicate &predicate)
{
    struct Visit {
        TreeItem *item;
        QStringList children; ///< names that are still to be visited
    };
    QVector<Visit> visits{{this, d->childNames()}};
    for (;;) {
        if (!visits.last().children.isEmpty()) {
            const QString name = visits.last().children.takeLast();
            if (TreeItem *child = visits.last().item->d->child(name)) {
                visits.append({child, child->d->childNames()});
            }
            continue;
        }
        TreeItem *item = visits.takeLast().item;
        if (visits.isEmpty()) {
            return;
        }
        if (predicate(item)) {
            item->d->parent->removeChild(item);
        }
    }
}

QList<TreeItem *> TreeItem::getSubitems(const Comparison &lessThan, const Predicate &filter, int depth)
{
    struct Pending {
        TreeItem *item;
        int depth; ///< levels to list below it
    };
    QVector<Pending> pending{{this, depth}};
    QList<TreeItem *> items;
    while (!pending.isEmpty()) {
        const Pending next = pending.takeLast();
        if (next.item != this && filter(next.item)) {
            items.append(next.item);
        }
        if (next.depth == 0) {
            continue;
        }
        const QList<TreeItem *> children = next.item->d->sortedChildren(lessThan);
        for (auto it = children.crbegin(); it != children.crend(); ++it) {
            pending.append({*it, next.depth - 1});
        }
    }
    return items;
}

QList<TreeItem *> TreeItem::getSubitems(const Comparison &lessThan, int depth)
{
    const auto acceptAll = [](TreeItem *) { return true; };
    return getSubitems(lessThan, acceptAll, depth);
}

QList<TreeItem *> TreeItem::itemsAtLevel(const Comparison &lessThan, int level)
{
    if (level <= 0) {
        return {};
    }
    QList<TreeItem *> items{this};
    for (; level > 0 && !items.isEmpty(); --level) {
        QList<TreeItem *> below;
        for (const TreeItem *item : qAsConst(items)) {
            below.append(item->d->sortedChildren(lessThan));
        }
        items.swap(below);
    }
    return items;
}

bool TreeItem::orderLessThan(const TreeItem *a, const TreeItem *b)
{
    return a->order() != b->order() ? a->order() < b->order() : a->d->name < b->d->name;
}

int TreeItem::depth(const TreeItem *top) const
{
    int steps = 0;
    for (const TreeItem *item = this; item && item != top; item = item->d->parent) {
        ++steps;
    }
    return steps;
}

void TreeItem::dumpTree(int indent) const
{
    struct Pending {
        const TreeItem *item;
        int indent;
    };
    QVector<Pending> pending{{this, indent - 1}};
    while (!pending.isEmpty()) {
        const Pending next = pending.takeLast();
        if (next.item != this) {
            qCInfo(lcSettings) << next.indent << "key:" << quoted(next.item->d->name)
                               << "data:" << quoted(next.item->data());
        }
        for (const TreeItem *child : qAsConst(next.item->d->children)) {
            pending.append({child, next.indent + 1});
        }
    }
}

#include "moc_treeitem.cpp"
