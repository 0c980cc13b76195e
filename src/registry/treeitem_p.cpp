// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem_p.h"

#include "registry/fileindex.h"

#include <QVarLengthArray>

#include <algorithm>

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
    TreeItem *item = q;
    for (auto name = path.cbegin(); name != path.cend(); ++name) {
        TreeItem *child = of(item)->childrenByName.value(*name);
        const bool isLast = std::next(name) == path.cend();
        if (!child) {
            child = new TreeItem(*name, {});
            of(child)->data = isLast ? data : NodeData();
            of(item)->addChild(child);
        } else if (isLast) {
            of(child)->setData(data);
        }
        item = child;
    }
    if (item == q) {
        setData(data);
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
    added->parent = q;
    added->position = children.size();
    children.append(child);
    m_isSorted = false;
    childrenByName.insert(added->name, child);
    if (wasLeaf) {
        enterIndex();
    }
    added->setIndex(m_index);
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
    TreeItem *child = childrenByName.take(name);
    if (!child) {
        return nullptr;
    }
    TreeItem *last = children.takeLast();
    if (last != child) {
        of(last)->position = of(child)->position;
        children[of(child)->position] = last;
        m_isSorted = false;
    }
    return child;
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

// With the keys side by side, in half the time
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
