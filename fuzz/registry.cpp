// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a sequence of steps: files that are added, removed, changed and loaded, and entries that are masked.
// After each step the tree is compared with a plain one.

#include "harness.h"
#include "input.h"

#include "registry/entrytree.h"
#include "registry/treeitem.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace
{
constexpr int MaxSteps = 64;

const QStringList s_files{QStringLiteral("a.json"), QStringLiteral("B.json"), QStringLiteral("c.json")};
const QString s_path = QStringLiteral("path");
const QString s_separator = QStringLiteral("/");

QStringList namesIn(const QString &path)
{
    return path.split(s_separator, Qt::SkipEmptyParts);
}

struct File {
    bool isJson = true;
    QString requiredGroup;
    QVector<QVariantMap> entries;
};

/// Returns a path. Paths have few names, so that many are equal, and several spellings.
QString readPath(Input *input)
{
    const int bits = input->byte();
    QStringList names;
    for (int i = 0; i < bits % 4; ++i) {
        names.append(QString(QChar(u'a' + (bits >> (2 + i) & 1))));
    }
    const QStringList spellings{names.join(s_separator), s_separator + names.join(s_separator),
                                names.join(s_separator) + s_separator, names.join(QStringLiteral("//"))};
    return spellings.at(bits >> 5 & 3);
}

QVariantMap readEntry(Input *input, int serial)
{
    QVariantMap entry{{QStringLiteral("title"), double(serial)}};
    const int kind = input->below(16);
    if (kind != 0) {
        entry.insert(s_path, readPath(input));
    }
    if (kind < 8) {
        entry.insert(QStringLiteral("order"), double(kind));
    }
    return entry;
}

File readFile(Input *input)
{
    static int serial = 0; // no two entries are equal
    File file;
    const int kind = input->byte();
    file.isJson = kind % 16 != 0;
    file.requiredGroup = kind % 16 == 1 ? QStringLiteral("others") : QString();
    for (int i = 0; i < kind / 64 + 1; ++i) {
        file.entries.append(readEntry(input, ++serial));
    }
    return file;
}

QByteArray toJson(const File &file)
{
    QVariantList entries;
    for (const QVariantMap &entry : file.entries) {
        entries.append(entry);
    }
    const QVariantMap object{{QStringLiteral("required_group"), file.requiredGroup},
                             {QStringLiteral("entries"), entries}};
    return file.isJson ? QJsonDocument(QJsonObject::fromVariantMap(object)).toJson() : QByteArray("{");
}

/// The nodes that an EntryTree should have. Each change walks all of them.
class PlainTree
{
public:
    QMap<QString, File> directory;

    void load(const QString &name);
    void unload(const QString &name);
    void scan();
    void mask(const QSet<QString> &paths);
    void changeMasked(const QSet<QString> &paths);

    /// The data of all nodes, including the root, by their paths.
    QMap<QString, QVariantMap> nodes{{QString(), {}}};

private:
    static QString parentOf(const QString &node);
    static QString fromFile(const QVariantMap &data);
    void insert(const QVariantMap &entry, const QString &file);
    void maskEntry(const QString &path, const QString &file);
    bool hasChildren(const QString &node) const;
    void removeEntries(const QSet<QString> &files, const QSet<QString> &removable);
    void removeNodes(const QSet<QString> &removable);
    QSet<QString> withNodes(const QSet<QString> &files) const;

    QStringList m_known;
    QSet<QString> m_loaded;
    QSet<QString> m_outlived;
    QSet<QString> m_masked;
    QMap<QString, QString> m_maskedEntries;
};

QString PlainTree::parentOf(const QString &node)
{
    return node.left(qMax(0, node.lastIndexOf(s_separator)));
}

QString PlainTree::fromFile(const QVariantMap &data)
{
    return data.value(QStringLiteral("from_file")).toString();
}

void PlainTree::load(const QString &name)
{
    const auto file = directory.constFind(name);
    if (file == directory.cend() || !file->isJson || !file->requiredGroup.isEmpty()) {
        return;
    }
    m_loaded.insert(name);
    m_outlived.remove(name);
    for (const QVariantMap &entry : file->entries) {
        if (!entry.contains(s_path)) {
            continue;
        }
        const QString path = entry.value(s_path).toString();
        if (m_masked.contains(path)) {
            maskEntry(path, name);
        } else {
            insert(entry, name);
        }
    }
}

void PlainTree::insert(const QVariantMap &entry, const QString &file)
{
    const QString node = namesIn(entry.value(s_path).toString()).join(s_separator);
    for (QString above = node; !above.isEmpty(); above = parentOf(above)) {
        nodes[above];
    }
    QVariantMap data = entry;
    data.insert(QStringLiteral("from_file"), file);
    nodes[node] = data;
}

void PlainTree::maskEntry(const QString &path, const QString &file)
{
    m_maskedEntries.insert(path, file);
    const auto node = nodes.find(namesIn(path).join(s_separator));
    if (node != nodes.end() && fromFile(*node) == file && node->value(s_path).toString() == path) {
        node->clear();
    }
}

bool PlainTree::hasChildren(const QString &node) const
{
    const QString prefix = node + s_separator;
    const auto below = nodes.lowerBound(prefix);
    return below != nodes.cend() && below.key().startsWith(prefix);
}

void PlainTree::removeNodes(const QSet<QString> &removable)
{
    // Deeper nodes first: a node is sorted before those below it.
    const QStringList all = nodes.keys();
    for (auto node = all.crbegin(); node != all.crend(); ++node) {
        const QString file = fromFile(nodes.value(*node));
        if (!node->isEmpty() && !hasChildren(*node) && (file.isNull() || removable.contains(file))) {
            nodes.remove(*node);
        }
    }
}

QSet<QString> PlainTree::withNodes(const QSet<QString> &files) const
{
    QSet<QString> found;
    for (const QVariantMap &data : nodes) {
        if (files.contains(fromFile(data))) {
            found.insert(fromFile(data));
        }
    }
    return found;
}

void PlainTree::removeEntries(const QSet<QString> &files, const QSet<QString> &removable)
{
    for (const QString &file : files) {
        const QStringList maskedPaths = m_maskedEntries.keys(file);
        for (const QString &path : maskedPaths) {
            m_maskedEntries.remove(path);
        }
    }
    removeNodes(removable);
    m_outlived = withNodes(m_outlived + (files & m_loaded));
    m_loaded -= files;
}

void PlainTree::unload(const QString &name)
{
    removeEntries({name}, QSet<QString>{name} + m_outlived);
}

void PlainTree::scan()
{
    const QStringList known = m_known;
    for (const QString &name : known) {
        if (!directory.contains(name)) {
            unload(name);
            m_known.removeOne(name);
        }
    }
    for (const QString &name : s_files) {
        if (directory.contains(name) && !m_known.contains(name)) {
            m_known.append(name);
            load(name);
        }
    }
}

void PlainTree::mask(const QSet<QString> &paths)
{
    m_masked = paths;
}

void PlainTree::changeMasked(const QSet<QString> &paths)
{
    QStringList reload;
    for (auto it = m_maskedEntries.cbegin(); it != m_maskedEntries.cend(); ++it) {
        if (!paths.contains(it.key())) {
            reload.append(it.value());
        }
    }
    for (const QString &path : paths) {
        const auto node = nodes.constFind(namesIn(path).join(s_separator));
        if (node != nodes.cend() && !m_masked.contains(path)) {
            reload.append(fromFile(*node));
        }
    }
    m_masked = paths;
    if (reload.isEmpty()) {
        return;
    }
    const QSet<QString> files(reload.cbegin(), reload.cend());
    removeEntries(files, files);
    for (const QString &name : s_files) {
        if (reload.contains(name)) {
            load(name);
        }
    }
    removeNodes(m_outlived);
    m_outlived = withNodes(m_outlived);
}

/// The tree and the plain one, to which the same steps are applied.
class Trees
{
public:
    Trees()
        : m_tree(sources(), nullptr)
    {
    }

    ~Trees()
    {
        for (const QString &name : s_files) {
            scratch().remove(name);
        }
    }

    /// Must be called before a file is loaded.
    void mask(Input *input);
    void step(Input *input);
    void compare() const;

private:
    static const Scratch &scratch();
    static EntrySources sources();
    static QSet<QString> readPaths(Input *input);
    void compareOrder(const QList<TreeItem *> &items) const;

    EntryTree m_tree;
    PlainTree m_plain;
};

const Scratch &Trees::scratch()
{
    static const Scratch scratch;
    return scratch;
}

EntrySources Trees::sources()
{
    EntrySources sources;
    sources.entriesDirectory = scratch().path();
    sources.isMember = [](uid_t, const QString &) { return false; };
    return sources;
}

QSet<QString> Trees::readPaths(Input *input)
{
    QSet<QString> paths;
    for (int count = input->below(4); count > 0; --count) {
        paths.insert(readPath(input));
    }
    return paths;
}

void Trees::mask(Input *input)
{
    const QSet<QString> paths = readPaths(input);
    m_plain.mask(paths);
    m_tree.setMasked(paths);
}

void Trees::step(Input *input)
{
    const int step = input->byte();
    const QString &name = s_files.at(step / 8 % s_files.size());
    switch (step % 8) {
    case 0:
    case 1:
        m_plain.directory.insert(name, readFile(input));
        scratch().write(name, toJson(m_plain.directory.value(name)));
        break;
    case 2:
        m_plain.directory.remove(name);
        scratch().remove(name);
        break;
    case 3:
        m_plain.load(name);
        m_tree.load(name);
        break;
    case 4:
        m_plain.unload(name);
        m_tree.unload({name});
        break;
    case 5:
    case 6: {
        const QSet<QString> paths = readPaths(input);
        m_plain.changeMasked(paths);
        m_tree.changeMasked(paths);
        break;
    }
    default:
        m_plain.scan();
        m_tree.scan();
    }
}

void Trees::compare() const
{
    QMap<QString, QVariantMap> nodes{{QString(), m_tree.root()->data()}};
    const QList<TreeItem *> items = m_tree.root()->getSubitems(TreeItem::orderLessThan, -1);
    for (TreeItem *item : items) {
        require(m_tree.root()->lookup(item->location()) == item, "a node is found at its location");
        nodes.insert(item->location().join(s_separator), item->data());
    }
    require(nodes.size() == items.size() + 1, "each node is listed once");
    require(nodes == m_plain.nodes, "the tree is as the plain one");
    compareOrder(items);
}

void Trees::compareOrder(const QList<TreeItem *> &items) const
{
    for (int i = 1; i < items.size(); ++i) {
        // A child follows its parent, a sibling or a node below a sibling.
        TreeItem *item = items.at(i);
        TreeItem *before = items.at(i - 1);
        while (before != item->parentItem() && before->parentItem() != item->parentItem()) {
            before = before->parentItem();
            require(before, "a node follows its parent or a sibling's subtree");
        }
        require(before == item->parentItem() || !TreeItem::orderLessThan(item, before), "siblings are in order");
    }
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    Trees trees;
    trees.mask(&input);
    for (int i = 0; i < MaxSteps && !input.atEnd(); ++i) {
        trees.step(&input);
        trees.compare();
    }
    return 0;
}
