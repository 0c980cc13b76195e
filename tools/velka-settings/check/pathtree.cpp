// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pathtree.h"

#include "registry/registrationfile.h"

#include <algorithm>

namespace Check
{
PathTree::PathTree(const std::vector<FileSummary> &files)
    : m_nodes(1)
{
    for (int i = 0; i < int(files.size()); ++i) {
        for (const WrittenPath &written : files[std::size_t(i)].declared) {
            const int number = insert(written.path);
            if (number != Root) {
                addDeclaration(number, {i, &written});
            }
        }
        for (const QString &path : files[std::size_t(i)].meant) {
            m_nodes[std::size_t(insert(path))].isMeant = true;
        }
    }
}

const std::vector<PathTree::Node> &PathTree::nodes() const
{
    return m_nodes;
}

const PathTree::Node &PathTree::node(int number) const
{
    return m_nodes[std::size_t(number)];
}

bool PathTree::isEmpty() const
{
    return m_isEmpty;
}

bool PathTree::isDeclared(int number) const
{
    return node(number).isMeant || !node(number).declarations.isEmpty();
}

int PathTree::find(const QString &path) const
{
    int current = Root;
    const QStringList names = splitPath(path);
    for (const QString &name : names) {
        current = child(current, name);
        if (current == Root) {
            break;
        }
    }
    return current;
}

int PathTree::child(int parent, const QString &name) const
{
    return m_children.value({parent, name}, Root);
}

QString PathTree::pathOf(int number) const
{
    QStringList names;
    for (int current = number; current != Root; current = node(current).parent) {
        names.append(node(current).name);
    }
    std::reverse(names.begin(), names.end());
    return names.join(QLatin1Char('/'));
}

QStringList PathTree::declaredPaths() const
{
    QStringList paths;
    for (const Node &node : m_nodes) {
        if (!node.declarations.isEmpty()) {
            paths.append(node.declarations.first().written->path);
        }
    }
    return paths;
}

int PathTree::insert(const QString &path)
{
    int current = Root;
    const QStringList names = splitPath(path);
    for (const QString &name : names) {
        int &child = m_children[{current, name}];
        if (child == Root) {
            child = int(m_nodes.size());
            m_nodes.push_back({current, name, {}, {}, 0, false});
            m_nodes[std::size_t(current)].children.append(child);
        }
        current = child;
    }
    return current;
}

void PathTree::addDeclaration(int number, const Declared &declaration)
{
    m_nodes[std::size_t(number)].declarations.append(declaration);
    for (int current = number; current != Root; current = node(current).parent) {
        ++m_nodes[std::size_t(current)].declaredBelow;
    }
    m_isEmpty = false;
}
}
