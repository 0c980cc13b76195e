// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a sequence of changes to a list of rows and to stored paths. Each is also applied to a plain list.

#include "harness.h"
#include "input.h"

#include "models/pathlist.h"
#include "models/rowdifference.h"

#include <array>
#include <memory>
#include <utility>

namespace
{
constexpr int ItemCount = 6;
constexpr int MaxRows = 200;

class Rows
{
public:
    void step(Input *input);
    void compare() const;

private:
    TreeItem *readItem(Input *input);
    void remove(int row);
    void fit(const QList<TreeItem *> &wanted);

    std::array<std::unique_ptr<TreeItem>, ItemCount> m_items;
    ItemRows m_rows;
    QVector<QPointer<TreeItem>> m_plain;
};

/// Returns an item that has not been deleted.
TreeItem *Rows::readItem(Input *input)
{
    auto &item = m_items.at(std::size_t(input->below(ItemCount)));
    if (!item) {
        item = std::make_unique<TreeItem>(QString(), QVariantMap());
    }
    return item.get();
}

void Rows::remove(int row)
{
    m_rows.removeAt(row);
    m_plain.removeAt(row);
}

void Rows::step(Input *input)
{
    const int step = input->below(8);
    if (step == 0) {
        m_items.at(std::size_t(input->below(ItemCount))).reset();
    } else if (step < 4 && m_plain.size() < MaxRows) {
        TreeItem *item = readItem(input);
        m_rows.append(item);
        m_plain.append(item);
    } else if (step == 6) {
        QList<TreeItem *> wanted;
        for (int count = input->below(16); count > 0; --count) {
            wanted.append(readItem(input));
        }
        fit(wanted);
    } else if (step == 7 && input->flag()) {
        m_rows.reset({});
        m_plain.clear();
    } else if (!m_plain.isEmpty()) {
        const int row = input->below(m_plain.size());
        if (step == 5) {
            const int to = input->below(m_plain.size());
            m_rows.move(row, to);
            m_plain.move(row, to);
        } else {
            remove(row);
        }
    }
}

/// Changes the rows to the wanted ones in a random order, one by one and by their difference.
void Rows::fit(const QList<TreeItem *> &wanted)
{
    const RowDifference difference(m_rows, wanted);
    QVector<int> obsolete;
    QList<TreeItem *> missing = wanted;
    for (int row = m_plain.size() - 1; row >= 0; --row) {
        if (!m_plain.at(row) || !missing.removeOne(m_plain.at(row))) {
            obsolete.append(row);
        }
    }
    require(difference.obsolete == obsolete, "rows go that are wanted no more");
    require(difference.missing.size() == missing.size()
                && std::equal(missing.cbegin(), missing.cend(), difference.missing.cbegin()),
            "items come that have no row");
    for (const int row : obsolete) {
        remove(row);
    }
    for (TreeItem *item : std::as_const(missing)) {
        m_rows.append(item);
        m_plain.append(item);
    }
    require(RowDifference(m_rows, wanted).isEmpty(), "then there is no difference");
}

void Rows::compare() const
{
    require(m_rows.count() == m_plain.size(), "there are as many rows as in the plain list");
    for (int row = 0; row < m_plain.size(); ++row) {
        require(m_rows.at(row) == m_plain.at(row), "the rows are those of the plain list");
    }
    require(!m_rows.at(-1) && !m_rows.at(m_plain.size()), "there are no other rows");
    for (const auto &item : m_items) {
        if (item) {
            const int row = m_rows.rowOf(item.get());
            require(row < 0 ? !m_plain.contains(item.get()) : m_plain.at(row) == item.get(),
                    "an item is in its row");
        }
    }
}

QString readPath(Input *input)
{
    return QString(QChar(u'a' + input->below(ItemCount)));
}

/// Edits a list of paths, and compares the results with plain lists.
void editPaths(Input *input)
{
    QStringList paths;
    for (int count = input->below(12); count > 0; --count) {
        paths = PathList::appended(paths, readPath(input));
    }
    const QString path = readPath(input);
    const QString target = readPath(input);
    QStringList rest;
    for (const QString &other : std::as_const(paths)) {
        if (other != path) {
            rest += other;
        }
    }
    require(PathList::removedAll(paths, path) == rest, "each path that is removed is gone");
    const QStringList moved = PathList::moved(paths, path, target);
    const int from = paths.indexOf(path);
    const int to = paths.indexOf(target);
    if (from < 0 || to < 0) {
        require(moved == paths, "nothing moves without both paths");
        return;
    }
    QStringList back = moved;
    require(back.takeAt(to) == path, "a path moves to its target's place");
    back.insert(from, path);
    require(back == paths, "all others stay as they are");
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    editPaths(&input);
    Rows rows;
    while (!input.atEnd()) {
        rows.step(&input);
        rows.compare();
    }
    return 0;
}
