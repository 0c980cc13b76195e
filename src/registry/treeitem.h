// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>

class TreeItemPrivate;

/**
 * One node of the settings tree.
 *
 * A node that a registration file declared carries that entry's keys and "from_file", the file's name. A node that
 * is only on the path of deeper entries has no data. Nodes own their children. PluginRegistry owns the
 * tree; a pointer into it is valid until PluginRegistry::contentChanged(). No operation recurses on the depth of
 * the tree or reports an error.
 */
class VELKASETTINGS_EXPORT TreeItem : public QObject
{
    Q_OBJECT
    // Constant for bindings: models replace a node in handlers of contentChanged(), before another value could matter.
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString type READ type CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString shortTitle READ shortTitle CONSTANT)
    Q_PROPERTY(QString icon READ icon CONSTANT)
    Q_PROPERTY(QString controlIcon READ controlIcon CONSTANT)

public:
    using Comparison = std::function<bool(TreeItem *, TreeItem *)>;
    using Predicate = std::function<bool(TreeItem *)>;

    /// A node without parent and children, with @p data as it is.
    TreeItem(const QString &name, const QVariantMap &data);
    /// Deletes the subtree, leaves first. Does not remove the node from its parent: see removeChild().
    ~TreeItem() override;

    QString name() const; ///< component of the path, empty for the root
    QString type() const; ///< "section" when the entry names none
    /// The text of "translation_id", else "title", else "!!" and the name. Translated at each call.
    QString title() const;
    QString shortTitle() const; ///< the text of "translation_id_short", else "title_short", else empty
    QString icon() const;
    QString controlIcon() const;

    /// The number of descendants down to @p depth levels, of all of them when it is negative.
    Q_INVOKABLE int count(int depth = 1) const;
    /// The names from just below @p top down to this node; from the root if @p top is not an ancestor.
    Q_INVOKABLE QStringList location(TreeItem *top = nullptr) const;
    Q_INVOKABLE QVariantMap data() const;

    QVariant value(const QString &key) const; ///< one value of data(), invalid when it is missing
    TreeItem *parentItem() const;
    bool isDeclared() const; ///< true if the data names a file
    QString fromFile() const;
    int order() const; ///< "order" as an int, 100 when it is missing or null

    /// Takes ownership of @p child. A child of the same name is removed from the tree, but not deleted.
    void addChild(TreeItem *child);
    /// Removes @p child from this node and deletes it. Handlers of destroyed() must not change the tree.
    void removeChild(TreeItem *child);
    /// Replaces the data of the node at @p path, and creates the nodes that are missing on the way. Returns that node.
    TreeItem *insertItem(const QStringList &path, const QVariantMap &data);
    void clearData();
    /// The node at @p path below this one (this node when it is empty), null when there is none.
    TreeItem *lookup(const QStringList &path);
    /// Deletes every descendant for which @p predicate is true, asking it for children before their parent.
    void removeItems(const Predicate &predicate);

    /**
     * The descendants that @p filter accepts, down to @p depth levels (all when negative): each node before its
     * own descendants, siblings in the order of @p lessThan, which must not be empty.
     */
    QList<TreeItem *> getSubitems(const Comparison &lessThan, const Predicate &filter, int depth);
    QList<TreeItem *> getSubitems(const Comparison &lessThan, int depth);
    /// The descendants exactly @p level levels below, in the order of getSubitems(). None when it is not positive.
    QList<TreeItem *> itemsAtLevel(const Comparison &lessThan, int level);
    /// By "order", then by name.
    static bool orderLessThan(const TreeItem *a, const TreeItem *b);

    /// Parent steps up to @p top, 0 for itself; up to and beyond the root if @p top is not an ancestor.
    int depth(const TreeItem *top) const;
    /// Logs the subtree at info level.
    void dumpTree(int indent) const;

private:
    friend class TreeItemPrivate;

    const std::unique_ptr<TreeItemPrivate> d;
};
