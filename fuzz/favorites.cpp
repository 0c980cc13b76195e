// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a sequence of steps: edits of the favourites, writes of other programs, changed properties, and entries
// that are added and removed. After each step the model is compared with a plain list.

#include "harness.h"
#include "input.h"

#include "../tests/support/modelreplica.h"
#include "common/constants.h"
#include "models/favoritesmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"

#include <mgconfitem.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QMap>

#include <utility>

namespace
{
constexpr int MaxSteps = 40;

const QString s_separator = QStringLiteral("/");
const QString s_userModifiedKey = QStringLiteral("/apps/velka-settings/favoritesModified");
const QString s_grid = QStringLiteral("grid_favorites");
const QString s_list = QStringLiteral("list_favorites");

// Entries, paths without an entry, other spellings
const QStringList s_paths{QStringLiteral("a"),  QStringLiteral("b"),    QStringLiteral("n"), QStringLiteral("a/x"),
                          QStringLiteral("d"),  QStringLiteral("d/y"),  QString(),           QStringLiteral("zz"),
                          QStringLiteral("/b"), QStringLiteral("a//x"), QStringLiteral("x")};
const QList<QStringList> s_filters{{s_grid}, {s_list}, {s_list, s_grid}, {}};
const QList<QStringList> s_roots{{}, {QStringLiteral("a")}, {QStringLiteral("d")}, {QStringLiteral("zz")}};

/// The registry, which reads the sandbox's files.
class Entries
{
public:
    Entries()
    {
        write(QStringLiteral("base.json"), R"({"entries": [{"path": "a"}, {"path": "a/x"}, {"path": "b"},
            {"path": "n", "type": "integer"}]})");
        PluginRegistry::instance();
    }

    bool hasMore() const
    {
        return m_hasMore;
    }

    void setMore(bool more)
    {
        if (more == m_hasMore) {
            return;
        }
        m_hasMore = more;
        const QString name = QStringLiteral("more.json");
        if (more) {
            write(name, R"({"entries": [{"path": "d"}, {"path": "d/y", "type": "integer"}]})");
        } else {
            QFile::remove(pathOf(name));
        }
        QMetaObject::invokeMethod(PluginRegistry::instance(), "monitoredDirectoryChanged");
    }

    /// Returns the kind of favourite of each entry, in the order of the tree.
    QMap<QString, QString> kinds() const
    {
        QMap<QString, QString> kinds{{QStringLiteral("a"), s_grid},
                                     {QStringLiteral("a/x"), s_grid},
                                     {QStringLiteral("b"), s_grid},
                                     {QStringLiteral("n"), s_list}};
        if (m_hasMore) {
            kinds.insert(QStringLiteral("d"), s_grid);
            kinds.insert(QStringLiteral("d/y"), s_list);
        }
        return kinds;
    }

private:
    static QString pathOf(const QString &name)
    {
        return Constants::EntriesDirectory + s_separator + name;
    }

    static void write(const QString &name, const QByteArray &json)
    {
        QFile file(pathOf(name));
        require(file.open(QIODevice::WriteOnly) && file.write(json) == json.size(), "entries can be written");
    }

    bool m_hasMore = false;
};

Entries &entries()
{
    static Entries entries;
    return entries;
}

/// The rows that a FavoritesModel should have, each as the path of its entry.
struct PlainFavorites {
    QStringList stored;
    QStringList rows;
    QStringList filter = s_filters.first();
    QStringList root;
    bool hasUserModifiedKey = false;
    bool userModified = false;
    bool potential = false;

    QStringList wanted() const;
    template<typename Value>
    void set(Value PlainFavorites::*property, const Value &value);
    void update();
    void storedChanged(const QStringList &paths);
    void editedStored(const QStringList &paths);
    void add(const QString &path);
    void remove(const QString &path);
    void move(int from, int to);

private:
    bool admits(const QString &path) const;
};

bool PlainFavorites::admits(const QString &path) const
{
    return path != root.join(s_separator) && filter.contains(entries().kinds().value(path));
}

QStringList PlainFavorites::wanted() const
{
    const QStringList all = entries().kinds().keys();
    const QString top = root.join(s_separator);
    if (!top.isEmpty() && !all.contains(top)) {
        return {};
    }
    QStringList wanted;
    for (const QString &path : potential ? all : stored) {
        if (potential ? top.isEmpty() || path.startsWith(top + s_separator) : true) {
            const QStringList names = path.split(s_separator, Qt::SkipEmptyParts);
            const QString entry = (potential ? names : root + names).join(s_separator);
            if (admits(entry)) {
                wanted.append(entry);
            }
        }
    }
    return wanted;
}

template<typename Value>
void PlainFavorites::set(Value PlainFavorites::*property, const Value &value)
{
    if (std::exchange(this->*property, value) != value) {
        update();
    }
}

void PlainFavorites::update()
{
    QStringList missing = wanted();
    for (int row = rows.size() - 1; row >= 0; --row) {
        if (!missing.removeOne(rows.at(row))) {
            rows.removeAt(row);
        }
    }
    rows += missing;
}

void PlainFavorites::storedChanged(const QStringList &paths)
{
    if (paths == stored) {
        return;
    }
    stored = paths;
    if (potential || (hasUserModifiedKey && userModified)) {
        update();
    } else {
        rows = wanted();
    }
}

void PlainFavorites::editedStored(const QStringList &paths)
{
    userModified = userModified || hasUserModifiedKey;
    storedChanged(paths);
}

void PlainFavorites::add(const QString &path)
{
    editedStored(stored + QStringList(path));
}

void PlainFavorites::remove(const QString &path)
{
    QStringList paths = stored;
    paths.removeAll(path);
    if (potential) {
        editedStored(paths);
    } else if (rows.contains(path)) {
        rows.removeAll(path);
        userModified = userModified || hasUserModifiedKey;
        stored = paths; // a path in another spelling has no row until the list changes again
    }
}

void PlainFavorites::move(int from, int to)
{
    if (from < 0 || to < 0 || qMax(from, to) >= rows.size()) {
        return;
    }
    const int storedFrom = stored.indexOf(rows.at(from));
    const int storedTo = stored.indexOf(rows.at(to));
    if (storedFrom >= 0 && storedTo >= 0) {
        rows.move(from, to);
        stored.move(storedFrom, storedTo);
        userModified = userModified || hasUserModifiedKey;
    }
}

class Favorites
{
public:
    explicit Favorites(bool hasUserModifiedKey);

    void step(Input *input);
    void compare() const;

private:
    const QString &readPath(Input *input);

    MGConfItem &m_stored;
    MGConfItem &m_userModified;
    FavoritesModel m_model;
    PlainFavorites m_plain;
    int m_announcedCount = 0;
    ModelReplica m_replica{&m_model, FavoritesModel::ObjectRole};
};

/// The key that other programs write. It is kept, because each new watch takes two calls over the bus.
MGConfItem &keptItem(const QString &key)
{
    static QHash<QString, MGConfItem *> items;
    MGConfItem *&item = items[key];
    if (!item) {
        item = new MGConfItem(key);
    }
    return *item;
}

Favorites::Favorites(bool hasUserModifiedKey)
    : m_stored(keptItem(Constants::FavoritesKey))
    , m_userModified(keptItem(s_userModifiedKey))
{
    entries().setMore(false);
    m_stored.set({});
    m_userModified.set({});
    m_plain.hasUserModifiedKey = hasUserModifiedKey;
    QObject::connect(&m_model, &FavoritesModel::countChanged, &m_model,
                     [this] { m_announcedCount = m_model.count(); });
    m_model.setFilter(m_plain.filter);
    m_model.setUserModifiedKey(hasUserModifiedKey ? s_userModifiedKey : QString());
    m_model.classBegin();
    m_model.componentComplete();
}

const QString &Favorites::readPath(Input *input)
{
    return s_paths.at(input->below(s_paths.size()));
}

void Favorites::step(Input *input)
{
    switch (input->below(12)) {
    case 0:
    case 1: {
        const QString &path = readPath(input);
        m_plain.add(path);
        m_model.addFavorite(path);
        break;
    }
    case 2:
    case 3: {
        const QString &path = readPath(input);
        m_plain.remove(path);
        m_model.removeFavorite(path);
        break;
    }
    case 4:
    case 5: {
        const int from = input->below(16) - 1;
        const int to = input->below(16) - 1;
        m_plain.move(from, to);
        m_model.move(from, to);
        break;
    }
    case 6: {
        QStringList paths;
        for (int count = input->below(8); count > 0; --count) {
            paths.append(readPath(input));
        }
        m_plain.storedChanged(paths);
        m_stored.set(paths);
        break;
    }
    case 7:
        m_plain.userModified = input->flag();
        m_userModified.set(m_plain.userModified);
        break;
    case 8:
        m_plain.set(&PlainFavorites::filter, s_filters.at(input->below(s_filters.size())));
        m_model.setFilter(m_plain.filter);
        break;
    case 9:
        m_plain.set(&PlainFavorites::root, s_roots.at(input->below(s_roots.size())));
        m_model.setPath(m_plain.root);
        break;
    case 10:
        m_plain.set(&PlainFavorites::potential, input->flag());
        m_model.setShowPotential(m_plain.potential);
        break;
    default:
        entries().setMore(!entries().hasMore());
        m_plain.rows = m_plain.wanted();
    }
}

void Favorites::compare() const
{
    QStringList rows;
    for (int row = 0; row < m_model.count(); ++row) {
        const QVariant object = m_model.data(m_model.index(row), FavoritesModel::ObjectRole);
        const auto *item = qobject_cast<const TreeItem *>(object.value<QObject *>());
        require(item, "a row has an entry");
        rows.append(item->location().join(s_separator));
        require(m_model.data(m_model.index(row), FavoritesModel::FavoriteRole).toBool()
                    == m_plain.stored.contains(rows.last()),
                "the role of a row shows if its path is stored");
    }
    require(rows == m_plain.rows, "the rows are those of the plain list");
    require(m_stored.value().toStringList() == m_plain.stored, "the stored paths are those of the plain list");
    require(m_model.userModified() == (m_plain.hasUserModifiedKey && m_plain.userModified), "edits are marked");
    require(m_replica.isEqual(), "the signals announced all changes");
    require(m_announcedCount == m_model.count(), "the count is announced");
    for (const QString &path : s_paths) {
        require(m_model.isFavorite(path) == m_plain.stored.contains(path), "what is stored is a favourite");
        require(m_model.indexOf(path) == rows.indexOf(path), "an entry is found in its first row");
    }
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    entries();
    Favorites favorites(input.flag());
    for (int i = 0; i < MaxSteps && !input.atEnd(); ++i) {
        favorites.step(&input);
        favorites.compare();
    }
    QCoreApplication::processEvents();
    return 0;
}
