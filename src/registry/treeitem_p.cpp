// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem_p.h"

#include "registry/fileindex.h"

#include <QVarLengthArray>

#include <algorithm>

namespace
{
constexpr int FewChildren = 8; // are searched as fast as a hash
}

TreeItemPrivate::TreeItemPrivate(TreeItem *item, const QString &name, const NodeData &data)
    : q(item)
    , name(name)
    , data(data)
{
}

TreeItemPrivate *TreeItemPrivate::of(const TreeItem *item)
{
    return item->d.get();
}

void TreeItemPrivate::setIndex(FileIndex *index)
{
    if (m_index == index) {
        return;
    }
    QVector<TreeItem *> pending{q};
    while (!pending.isEmpty()) {
        TreeItemPrivate *item = of(pending.takeLast());
        item->leaveIndex();
        item->m_index = index;
        item->enterIndex();
        pending += item->children;
    }
}

FileIndex *TreeItemPrivate::index() const
{
    return m_index;
}

TreeItem *TreeItemPrivate::insert(const QStringList &path, const NodeData &data)
{
    if (path.isEmpty()) {
        setData(data);
    }
    TreeItem *item = q;
    for (auto name = path.cbegin(); name != path.cend(); ++name) {
        const bool isLast = std::next(name) == path.cend();
        item = of(item)->insertChild(*name, isLast ? &data : nullptr);
    }
    return item;
}

/// Returns the child with @p name, which is created if it is missing. Sets its data unless @p data is null.
TreeItem *TreeItemPrivate::insertChild(const QString &name, const NodeData *data)
{
    TreeItem *item = child(name);
    if (!item) {
        item = new TreeItem(name, {});
        of(item)->data = data ? *data : NodeData();
        addChild(item);
    } else if (data) {
        of(item)->setData(*data);
    }
    return item;
}

void TreeItemPrivate::setData(const NodeData &data)
{
    leaveIndex();
    if (m_index && q->isDeclared()) {
        m_index->replace(q->fromFile());
    }
    this->data = data;
    if (parent) {
        of(parent)->m_isSorted = false;
    }
    enterIndex();
}

void TreeItemPrivate::keepEntryAlone()
{
    leaveIndex();
    data.keepEntryAlone();
    enterIndex();
}

TreeItem *TreeItemPrivate::child(const QString &name) const
{
    if (!m_childrenByName.isEmpty()) {
        return m_childrenByName.value(name);
    }
    const auto *const found = std::find_if(children.cbegin(), children.cend(),
                                           [&name](const TreeItem *child) { return of(child)->name == name; });
    return found == children.cend() ? nullptr : *found;
}

QStringList TreeItemPrivate::childNames() const
{
    QStringList names;
    names.reserve(children.size());
    for (const TreeItem *child : qAsConst(children)) {
        names.append(of(child)->name);
    }
    return names;
}

void TreeItemPrivate::addChild(TreeItem *child)
{
    const bool wasLeaf = children.isEmpty();
    if (wasLeaf) {
        leaveIndex(); // which lists undeclared leaves
    }
    TreeItemPrivate *added = of(child);
    if (TreeItem *replaced = takeChild(added->name)) {
        of(replaced)->parent = nullptr;
        of(replaced)->setIndex(nullptr);
    }
    appendChild(child);
    if (wasLeaf) {
        enterIndex();
    }
    added->setIndex(m_index);
}

void TreeItemPrivate::appendChild(TreeItem *child)
{
    of(child)->parent = q;
    of(child)->position = children.size();
    if (children.isEmpty()) {
        children.reserve(1); // the room for more would be twice the memory, and most nodes have one child at most
    }
    children.append(child);
    m_isSorted = false;
    rememberName(child);
}

void TreeItemPrivate::rememberName(TreeItem *child)
{
    if (!m_childrenByName.isEmpty()) {
        m_childrenByName.insert(of(child)->name, child);
    } else if (children.size() > FewChildren) {
        for (TreeItem *sibling : qAsConst(children)) {
            m_childrenByName.insert(of(sibling)->name, sibling);
        }
    }
}

void TreeItemPrivate::removeChild(TreeItem *child)
{
    takeChild(of(child)->name);
    if (children.isEmpty()) {
        leaveIndex();
        enterIndex();
    }
    delete child;
}

TreeItem *TreeItemPrivate::takeChild(const QString &name)
{
    TreeItem *taken = child(name);
    if (!taken) {
        return nullptr;
    }
    m_childrenByName.remove(name);
    TreeItem *last = children.takeLast();
    if (last != taken) {
        of(last)->position = of(taken)->position;
        children[of(taken)->position] = last;
        m_isSorted = false;
    }
    return taken;
}

void TreeItemPrivate::deleteDescendants()
{
    QVector<TreeItem *> subtree{q};
    for (int i = 0; i < subtree.size(); ++i) {
        subtree += of(subtree.at(i))->children;
    }
    // Children follow their parents. Each is removed from the tree first, because handlers of destroyed() may read it.
    for (int i = subtree.size() - 1; i > 0; --i) {
        of(of(subtree.at(i))->parent)->removeChild(subtree.at(i));
    }
}

QList<TreeItem *> TreeItemPrivate::sortedChildren(const TreeItem::Comparison &lessThan) const
{
    if (!m_isSorted) {
        sortChildren();
    }
    QList<TreeItem *> sorted = children.toList();
    if (!std::is_sorted(sorted.cbegin(), sorted.cend(), lessThan)) {
        std::sort(sorted.begin(), sorted.end(), lessThan);
    }
    return sorted;
}

// Sorting the keys in one array takes half the time of sorting the nodes.
void TreeItemPrivate::sortChildren() const
{
    struct Key {
        int order;
        QStringView name;
        TreeItem *item;
    };
    QVarLengthArray<Key> keys;
    keys.reserve(children.size());
    for (TreeItem *child : qAsConst(children)) {
        keys.append({of(child)->data.order(), of(child)->name, child});
    }
    std::sort(keys.begin(), keys.end(),
              [](const Key &a, const Key &b) { return a.order != b.order ? a.order < b.order : a.name < b.name; });
    for (int i = 0; i < keys.size(); ++i) {
        of(keys.at(i).item)->position = i;
        children[i] = keys.at(i).item;
    }
    m_isSorted = true;
}

void TreeItemPrivate::enterIndex()
{
    if (m_index) {
        m_index->add(q);
    }
}

void TreeItemPrivate::leaveIndex()
{
    if (m_index) {
        m_index->remove(q);
    }
}
