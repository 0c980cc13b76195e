// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <QVector>

#include <functional>

class FileEntries;
class FileIndex;
class QJsonObject;

/**
 * One node of the settings tree.
 *
 * A node that a registration file declared carries that entry's keys and "from_file", the file's name. A node that
 * only stands on the path of deeper entries carries nothing. Nodes own their children. PluginRegistry owns the
 * tree; a pointer into it is valid until PluginRegistry::contentChanged(). No operation recurses on the depth of
 * the tree or reports an error.
 */
class VELKASETTINGS_EXPORT TreeItem : public QObject
{
    Q_OBJECT
    // Constant for bindings: whoever holds a node drops it at contentChanged(), before another value could matter.
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString type READ type CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString shortTitle READ shortTitle CONSTANT)
    Q_PROPERTY(QString icon READ icon CONSTANT)
    Q_PROPERTY(QString controlIcon READ controlIcon CONSTANT)

public:
    using Comparison = std::function<bool(const TreeItem *, const TreeItem *)>;
    using Predicate = std::function<bool(const TreeItem *)>;
    using Entries = QExplicitlySharedDataPointer<FileEntries>;

    /// A node without parent and children. What is no JSON in @p data is turned into it.
    TreeItem(const QString &name, const QVariantMap &data);
    /// Deletes the subtree, leaves first. Does not take the node out of its parent: see removeChild().
    ~TreeItem() override;

    QString name() const; ///< component of the path, empty for the root
    QString type() const; ///< "section" when the entry names none
    /// The text of "translation_id", else "title", else "!!" and the name. Translated anew at each call.
    QString title() const;
    QString shortTitle() const; ///< the text of "translation_id_short", else "title_short", else empty
    QString icon() const;
    QString controlIcon() const;

    /// The number of descendants down to @p depth levels, of all of them when it is negative.
    Q_INVOKABLE int count(int depth = 1) const;
    /// The names from just below @p top down to this node; from the root when @p top is no ancestor.
    Q_INVOKABLE QStringList location(TreeItem *top = nullptr) const;
    Q_INVOKABLE QVariantMap data() const;

    QVariant value(const QString &key) const; ///< one value of data(), invalid when it is missing
    TreeItem *parentItem() const;
    bool isDeclared() const; ///< whether the data names a file
    QString fromFile() const;
    int order() const; ///< "order" as an int, 100 when it is missing or null

    /// Takes ownership of @p child. A child of the same name leaves the tree, but is not deleted.
    void addChild(TreeItem *child);
    /// Takes @p child out of this node and deletes it. Whoever hears of its death must leave the tree as it is.
    void removeChild(TreeItem *child);
    /// Replaces the data of the node at @p path, making the nodes that are missing on the way. Returns that node.
    /// What is no JSON in @p data is turned into it.
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

    /// Parent steps up to @p top, 0 for itself; up to and beyond the root when @p top is no ancestor.
    int depth(const TreeItem *top) const;
    /// Logs the subtree at info level.
    void dumpTree(int indent) const;

    /// Keeps @p index up to date about this subtree from now on. It must outlive the subtree.
    Q_DECL_HIDDEN void setIndex(FileIndex *index);
    /// insertItem() for one of @p entries, those of the file @p fromFile, whose name replaces any "from_file" in it.
    Q_DECL_HIDDEN TreeItem *insertEntry(const QStringList &path, const Entries &entries, int index,
                                        const QString &fromFile);
    /// Lets go of the other entries of its file.
    Q_DECL_HIDDEN void keepEntryAlone();

private:
    friend class FileIndex;

    Q_DECL_HIDDEN TreeItem(const QString &name, const Entries &entries, int index, const QString &fromFile);
    Q_DECL_HIDDEN void setEntry(const Entries &entries, int index, const QString &fromFile);
    Q_DECL_HIDDEN QJsonObject entry() const;
    Q_DECL_HIDDEN QList<TreeItem *> sortedChildren(const Comparison &lessThan) const;
    Q_DECL_HIDDEN void sortChildren() const;
    Q_DECL_HIDDEN TreeItem *takeChild(const QString &name);
    Q_DECL_HIDDEN void enterIndex();
    Q_DECL_HIDDEN void leaveIndex();

    const QString m_name;
    QHash<QString, TreeItem *> m_childrenByName;
    mutable QVector<TreeItem *> m_children; ///< quicker to walk than the hash
    Entries m_entries; ///< null without an entry
    int m_entryIndex = 0; ///< in m_entries
    int m_order;
    QString m_fromFile; ///< null when no file declared the node
    TreeItem *m_parent = nullptr;
    FileIndex *m_index = nullptr;
    int m_position = -1; ///< among the parent's children
    int m_indexPosition = -1; ///< among the nodes of its file, kept by the index
    mutable bool m_isSorted = true; ///< whether the children are in their order
};
