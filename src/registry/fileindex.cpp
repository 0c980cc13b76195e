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
        QVector<TreeItem *> &declared = m_declared[item->fromFile()];
        item->m_indexPosition = declared.size();
        declared.append(item);
    } else if (item->count() == 0) {
        m_loose.insert(item);
    }
}

void FileIndex::remove(TreeItem *item)
{
    if (item->m_indexPosition < 0) {
        m_loose.remove(item);
        return;
    }
    const auto declared = m_declared.find(item->fromFile());
    TreeItem *last = declared->takeLast();
    if (last != item) {
        (*declared)[item->m_indexPosition] = last;
        last->m_indexPosition = item->m_indexPosition;
    }
    item->m_indexPosition = -1;
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
