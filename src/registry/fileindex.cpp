// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/fileindex.h"

#include "registry/treeitem.h"

void FileIndex::add(TreeItem *item)
{
    if (!item->parentItem()) {
        return;
    }
    if (item->isDeclared()) {
        m_declared[item->fromFile()].insert(item);
    } else if (item->count() == 0) {
        m_loose.insert(item);
    }
}

void FileIndex::remove(TreeItem *item)
{
    m_loose.remove(item);
    const auto declared = m_declared.find(item->fromFile());
    if (declared == m_declared.end()) {
        return;
    }
    declared->remove(item);
    if (declared->isEmpty()) {
        m_declared.erase(declared);
    }
}

QVector<QPointer<TreeItem>> FileIndex::removableWith(const QSet<QString> &files) const
{
    QVector<QPointer<TreeItem>> items;
    for (const QString &file : files) {
        for (TreeItem *item : m_declared.value(file)) {
            items.append(item);
        }
    }
    for (TreeItem *item : m_loose) {
        items.append(item);
    }
    return items;
}
