// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "entrydifference.h"

#include "registry/treeitem.h"
#include "treelisting.h"

namespace
{
QVector<ChangedKey> changedKeys(const QJsonObject &before, const QJsonObject &after)
{
    QStringList keys = before.keys() + after.keys();
    keys.sort();
    keys.removeDuplicates();
    QVector<ChangedKey> changed;
    for (const QString &key : std::as_const(keys)) {
        const ChangedKey candidate{key, before.value(key), after.value(key)};
        if (candidate.before != candidate.after) {
            changed.append(candidate);
        }
    }
    return changed;
}
}

bool EntryDifference::isEmpty() const
{
    return added.isEmpty() && removed.isEmpty() && changed.isEmpty();
}

EntrySnapshot snapshotOf(TreeItem *root, bool withTitles)
{
    EntrySnapshot entries;
    const QVector<TreeListing::ListedItem> listed = TreeListing::itemsOf(root);
    for (const auto &[item, depth] : listed) {
        if (item->isDeclared()) {
            QJsonObject data = QJsonObject::fromVariantMap(item->data());
            data.remove(QStringLiteral("from_file")); // an update may rename files
            if (withTitles) {
                data.insert(QStringLiteral("shown title"), item->title());
            }
            entries.insert(TreeListing::pathOf(item), data);
        }
    }
    return entries;
}

EntryDifference differenceBetween(const EntrySnapshot &before, const EntrySnapshot &after)
{
    EntryDifference difference;
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        const auto other = after.constFind(it.key());
        if (other == after.cend()) {
            difference.removed.append(it.key());
        } else if (*other != *it) {
            difference.changed.append({it.key(), changedKeys(*it, *other)});
        }
    }
    for (auto it = after.cbegin(); it != after.cend(); ++it) {
        if (!before.contains(it.key())) {
            difference.added.append(it.key());
        }
    }
    return difference;
}
