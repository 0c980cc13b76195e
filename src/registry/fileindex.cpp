// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/fileindex.h"

#include "registry/nodeobserver.h"
#include "registry/treeitem_p.h"

#include <utility>

void FileIndex::addObserver(NodeObserver *observer)
{
    m_observers.append(observer);
}

void FileIndex::removeObserver(NodeObserver *observer)
{
    m_observers.removeOne(observer);
}

void FileIndex::add(TreeItem *item)
{
    if (!item->parentItem()) {
        return;
    }
    for (NodeObserver *observer : qAsConst(m_observers)) {
        observer->nodeEntered(item);
    }
    if (item->isDeclared()) {
        QVector<TreeItem *> &declared = m_declared[item->fromFile()];
        TreeItemPrivate::of(item)->indexPosition = declared.size();
        declared.append(item);
    } else if (item->count() == 0) {
        m_undeclaredLeaves.insert(item);
    }
}

void FileIndex::remove(TreeItem *item)
{
    for (NodeObserver *observer : qAsConst(m_observers)) {
        observer->nodeLeaves(item);
    }
    const int position = std::exchange(TreeItemPrivate::of(item)->indexPosition, -1);
    if (position < 0) {
        m_undeclaredLeaves.remove(item);
        return;
    }
    const auto declared = m_declared.find(item->fromFile());
    TreeItem *last = declared->takeLast();
    if (last != item) {
        (*declared)[position] = last;
        TreeItemPrivate::of(last)->indexPosition = position;
    }
    if (declared->isEmpty()) {
        m_declared.erase(declared);
    }
}

void FileIndex::replace(const QString &file)
{
    m_replaced.insert(file);
}

QSet<QString> FileIndex::takeReplaced()
{
    return std::exchange(m_replaced, {});
}

QStringList FileIndex::files() const
{
    return m_declared.keys();
}

bool FileIndex::contains(const QString &file) const
{
    return m_declared.contains(file);
}

QVector<TreeItem *> FileIndex::declaredBy(const QString &file) const
{
    return m_declared.value(file);
}

QVector<QPointer<TreeItem>> FileIndex::removableWith(const QSet<QString> &files) const
{
    QVector<QPointer<TreeItem>> items;
    for (const QString &file : files) {
        for (TreeItem *item : m_declared.value(file)) {
            items.append(item);
        }
    }
    for (TreeItem *item : m_undeclaredLeaves) {
        items.append(item);
    }
    return items;
}
