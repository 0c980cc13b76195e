// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem.h"

#include "common/constants.h"
#include "common/logging.h"
#include "registry/fileentries.h"
#include "registry/fileindex.h"
#include "registry/jsonvariant.h"
#include "registry/titles.h"

#include <QJsonObject>
#include <QVarLengthArray>

#include <algorithm>

namespace
{
constexpr int DefaultOrder = 100;

const QString s_fromFile = QStringLiteral("from_file");

int readOrder(const QJsonObject &entry)
{
    const QVariant order = jsonToVariant(entry.value(QLatin1String("order")));
    return order.isNull() ? DefaultOrder : order.toInt();
}

TreeItem::Entries entriesOf(const QVariantMap &data)
{
    return TreeItem::Entries(data.isEmpty() ? nullptr : new FileEntries({QJsonObject::fromVariantMap(data)}));
}
}

TreeItem::TreeItem(const QString &name, const Entries &entries, int index, const QString &fromFile)
    : m_name(name)
    , m_entries(entries)
    , m_entryIndex(index)
    , m_order(readOrder(entry()))
    , m_fromFile(fromFile)
{
}

TreeItem::TreeItem(const QString &name, const QVariantMap &data)
    : TreeItem(name, entriesOf(data), 0, data.value(s_fromFile).toString())
{
}

TreeItem::~TreeItem()
{
    QVector<TreeItem *> subtree{this};
    for (int i = 0; i < subtree.size(); ++i) {
        for (TreeItem *child : qAsConst(subtree.at(i)->m_children)) {
            subtree.append(child);
        }
    }
    // Children stand behind their parents. Each leaves the tree before it dies: destroyed() lets others look at it.
    for (int i = subtree.size() - 1; i > 0; --i) {
        subtree.at(i)->m_parent->removeChild(subtree.at(i));
    }
    leaveIndex();
}

QString TreeItem::name() const
{
    return m_name;
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
        return m_children.size();
    }
    int total = 0;
    QVector<const TreeItem *> level{this};
    for (; depth != 0 && !level.isEmpty(); --depth) {
        QVector<const TreeItem *> below;
        for (const TreeItem *item : qAsConst(level)) {
            std::copy(item->m_children.cbegin(), item->m_children.cend(), std::back_inserter(below));
        }
        total += below.size();
        level.swap(below);
    }
    return total;
}

QStringList TreeItem::location(TreeItem *top) const
{
    QStringList names;
    for (const TreeItem *item = this; item != top && item->m_parent; item = item->m_parent) {
        names.append(item->m_name);
    }
    std::reverse(names.begin(), names.end());
    return names;
}

QVariantMap TreeItem::data() const
{
    QVariantMap data = jsonToVariantMap(entry());
    if (isDeclared()) {
        data.insert(s_fromFile, m_fromFile);
    }
    return data;
}

QVariant TreeItem::value(const QString &key) const
{
    return key == s_fromFile && isDeclared() ? m_fromFile : jsonToVariant(entry().value(key));
}

TreeItem *TreeItem::parentItem() const
{
    return m_parent;
}

bool TreeItem::isDeclared() const
{
    return !m_fromFile.isNull();
}

QString TreeItem::fromFile() const
{
    return m_fromFile;
}

int TreeItem::order() const
{
    return m_order;
}

void TreeItem::addChild(TreeItem *child)
{
    const bool wasLeaf = m_children.isEmpty();
    if (wasLeaf) {
        leaveIndex(); // it may be there as a node that nothing keeps
    }
    if (TreeItem *replaced = takeChild(child->m_name)) {
        replaced->m_parent = nullptr;
        replaced->setIndex(nullptr);
    }
    child->m_parent = this;
    child->m_position = m_children.size();
    m_children.append(child);
    m_isSorted = false;
    m_childrenByName.insert(child->m_name, child);
    if (wasLeaf) {
        enterIndex();
    }
    child->setIndex(m_index);
}

void TreeItem::removeChild(TreeItem *child)
{
    takeChild(child->m_name);
    if (m_children.isEmpty()) {
        leaveIndex();
        enterIndex();
    }
    delete child;
}

TreeItem *TreeItem::takeChild(const QString &name)
{
    TreeItem *child = m_childrenByName.take(name);
    if (!child) {
        return nullptr;
    }
    TreeItem *last = m_children.takeLast();
    if (last != child) {
        m_children[child->m_position] = last;
        last->m_position = child->m_position;
        m_isSorted = false;
    }
    return child;
}

TreeItem *TreeItem::insertItem(const QStringList &path, const QVariantMap &data)
{
    return insertEntry(path, entriesOf(data), 0, data.value(s_fromFile).toString());
}

TreeItem *TreeItem::insertEntry(const QStringList &path, const Entries &entries, int index,
                                const QString &fromFile)
{
    TreeItem *item = this;
    for (auto name = path.cbegin(); name != path.cend(); ++name) {
        TreeItem *child = item->m_childrenByName.value(*name);
        if (!child && std::next(name) == path.cend()) {
            child = new TreeItem(*name, entries, index, fromFile);
            item->addChild(child);
            return child;
        }
        if (!child) {
            child = new TreeItem(*name, Entries(), 0, QString());
            item->addChild(child);
        }
        item = child;
    }
    item->setEntry(entries, index, fromFile);
    return item;
}

void TreeItem::clearData()
{
    setEntry({}, 0, {});
}

void TreeItem::setEntry(const Entries &entries, int index, const QString &fromFile)
{
    leaveIndex();
    m_entries = entries;
    m_entryIndex = index;
    m_order = readOrder(entry());
    m_fromFile = fromFile;
    if (m_parent) {
        m_parent->m_isSorted = false;
    }
    enterIndex();
}

void TreeItem::keepEntryAlone()
{
    m_entries = Entries(new FileEntries({entry()}));
    m_entryIndex = 0;
}

QJsonObject TreeItem::entry() const
{
    return m_entries ? m_entries->at(m_entryIndex) : QJsonObject();
}

TreeItem *TreeItem::lookup(const QStringList &path)
{
    if (!path.isEmpty()) {
        qCInfo(lcSettings) << "lookup item path:" << path;
    }
    TreeItem *item = this;
    for (const QString &name : path) {
        qCInfo(lcSettings) << "child keys:" << item->m_childrenByName.keys();
        item = item->m_childrenByName.value(name);
        if (!item) {
            return nullptr;
        }
    }
    return item;
}

void TreeItem::removeItems(const Predicate &predicate)
{
    struct Visit {
        TreeItem *item;
        QStringList children; ///< names that are still to be visited
    };
    QVector<Visit> visits{{this, m_childrenByName.keys()}};
    for (;;) {
        if (!visits.last().children.isEmpty()) {
            const QString name = visits.last().children.takeLast();
            if (TreeItem *child = visits.last().item->m_childrenByName.value(name)) {
                visits.append({child, child->m_childrenByName.keys()});
            }
            continue;
        }
        TreeItem *item = visits.takeLast().item;
        if (visits.isEmpty()) {
            return;
        }
        if (predicate(item)) {
            item->m_parent->removeChild(item);
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
        const QList<TreeItem *> children = next.item->sortedChildren(lessThan);
        for (auto it = children.crbegin(); it != children.crend(); ++it) {
            pending.append({*it, next.depth - 1});
        }
    }
    return items;
}

QList<TreeItem *> TreeItem::getSubitems(const Comparison &lessThan, int depth)
{
    const auto acceptAll = [](const TreeItem *) { return true; };
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
            below.append(item->sortedChildren(lessThan));
        }
        items.swap(below);
    }
    return items;
}

bool TreeItem::orderLessThan(const TreeItem *a, const TreeItem *b)
{
    return a->m_order != b->m_order ? a->m_order < b->m_order : a->m_name < b->m_name;
}

int TreeItem::depth(const TreeItem *top) const
{
    int steps = 0;
    for (const TreeItem *item = this; item && item != top; item = item->m_parent) {
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
            qCInfo(lcSettings) << next.indent << "key:" << next.item->m_name << "data:" << next.item->data();
        }
        for (const TreeItem *child : qAsConst(next.item->m_children)) {
            pending.append({child, next.indent + 1});
        }
    }
}

void TreeItem::setIndex(FileIndex *index)
{
    if (m_index == index) {
        return;
    }
    QVector<TreeItem *> pending;
    TreeItem *item = this;
    for (;;) {
        item->leaveIndex();
        item->m_index = index;
        item->enterIndex();
        std::copy(item->m_children.cbegin(), item->m_children.cend(), std::back_inserter(pending));
        if (pending.isEmpty()) {
            return;
        }
        item = pending.takeLast();
    }
}

QList<TreeItem *> TreeItem::sortedChildren(const Comparison &lessThan) const
{
    const auto *function = lessThan.target<bool (*)(const TreeItem *, const TreeItem *)>();
    if (function && *function == orderLessThan) {
        if (!m_isSorted) {
            sortChildren();
        }
        return m_children.toList();
    }
    QList<TreeItem *> children = m_children.toList();
    std::sort(children.begin(), children.end(), lessThan);
    return children;
}

// With the keys side by side, in half the time
void TreeItem::sortChildren() const
{
    struct Key {
        int order;
        QStringView name;
        TreeItem *item;
    };
    QVarLengthArray<Key> keys;
    keys.reserve(m_children.size());
    for (TreeItem *child : qAsConst(m_children)) {
        keys.append({child->m_order, child->m_name, child});
    }
    std::sort(keys.begin(), keys.end(),
              [](const Key &a, const Key &b) { return a.order != b.order ? a.order < b.order : a.name < b.name; });
    for (int i = 0; i < keys.size(); ++i) {
        keys[i].item->m_position = i;
        m_children[i] = keys[i].item;
    }
    m_isSorted = true;
}

void TreeItem::enterIndex()
{
    if (m_index) {
        m_index->add(this);
    }
}

void TreeItem::leaveIndex()
{
    if (m_index) {
        m_index->remove(this);
    }
}
