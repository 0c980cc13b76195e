// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/constants.h"
#include "nearest.h"
#include "setrules.h"

#include <algorithm>

namespace Check
{
namespace
{
constexpr int MaxSiblings = 1000; // each undeclared node is compared with all of them

/// Returns the roots that programs are known to show.
QStringList knownRoots()
{
    return {QStringLiteral("system_settings"), Constants::ApplicationsSection};
}

/// Returns the child of the root that almost all declarations are below, PathTree::Root when there is none.
int commonRoot(const PathTree &tree)
{
    int all = 0;
    int most = PathTree::Root;
    for (const int root : tree.node(PathTree::Root).children) {
        if (knownRoots().contains(tree.node(root).name) && tree.node(root).name != knownRoots().constFirst()) {
            continue; // has entries of a kind of its own
        }
        all += tree.node(root).declaredBelow;
        if (most == PathTree::Root || tree.node(root).declaredBelow > tree.node(most).declaredBelow) {
            most = root;
        }
    }
    const int below = most == PathTree::Root ? 0 : tree.node(most).declaredBelow;
    return below >= 2 && !tree.node(most).children.isEmpty() && 4 * below > 3 * (all - 1) ? most : PathTree::Root;
}
}

void DirectoryRules::checkParents()
{
    const bool isUnclear = std::any_of(m_files.cbegin(), m_files.cend(),
                                       [](const FileSummary &file) { return file.isUnclear; });
    if (isUnclear) {
        return; // the file may declare any of the parents
    }
    checkRoots();
    checkApplications();
    checkDots();
    for (const PathTree::Node &node : m_tree.nodes()) {
        if (!node.declarations.isEmpty()) {
            checkParentsOf(node);
        }
    }
}

/// Reports paths that leave out the root that all others have.
void DirectoryRules::checkRoots()
{
    const int common = commonRoot(m_tree);
    if (common == PathTree::Root) {
        return;
    }
    const QString root = m_tree.node(common).name;
    for (const int other : m_tree.node(PathTree::Root).children) {
        const PathTree::Node &node = m_tree.node(other);
        const bool isOwnRoot = !node.declarations.isEmpty() && !node.children.isEmpty()
                               && m_tree.child(common, node.name) == PathTree::Root;
        if (other == common || node.declaredBelow == 0 || isOwnRoot || knownRoots().contains(node.name)
            || !spellingOf(other).isEmpty()) {
            continue;
        }
        const int first = firstDeclaredIn(other);
        m_isReported[other] = true;
        reportPath(m_tree.node(first).declarations.first(), Tag::RootMissing,
                   QStringLiteral("the other paths begin with %1: did you mean %2?")
                       .arg(quoted(root), quoted(root + QLatin1Char('/') + m_tree.pathOf(first))));
    }
}

/// Returns the first node with a declaration in the subtree of @p node, which has one.
int DirectoryRules::firstDeclaredIn(int node) const
{
    while (m_tree.node(node).declarations.isEmpty()) {
        const QVector<int> &children = m_tree.node(node).children;
        node = *std::find_if(children.cbegin(), children.cend(),
                             [this](int child) { return m_tree.node(child).declaredBelow > 0; });
    }
    return node;
}

/// Reports the places below "applications" that are not named after a desktop file.
void DirectoryRules::checkApplications()
{
    static const QString suffix = QStringLiteral(".desktop");
    const int applications = m_tree.child(PathTree::Root, Constants::ApplicationsSection);
    if (applications == PathTree::Root) {
        return;
    }
    for (const int place : m_tree.node(applications).children) {
        const QString &name = m_tree.node(place).name;
        if (m_tree.node(place).declaredBelow == 0 || name.endsWith(suffix)) {
            continue;
        }
        const QString base = name.endsWith(suffix, Qt::CaseInsensitive) ? name.chopped(suffix.size()) : name;
        m_isReported[place] = true;
        reportPath(
            m_tree.node(firstDeclaredIn(place)).declarations.first(), Tag::ApplicationPlace,
            QStringLiteral("%1 is not the name of a desktop file: did you mean %2?")
                .arg(quoted(name), quoted(Constants::ApplicationsSection + QLatin1Char('/') + base + suffix)));
    }
}

/// Reports names with a dot after the name of a declared entry.
void DirectoryRules::checkDots()
{
    for (int i = 1; i < int(m_tree.nodes().size()); ++i) {
        const PathTree::Node &node = m_tree.node(i);
        const int dot = node.name.indexOf(QLatin1Char('.'));
        if (dot <= 0 || node.declaredBelow == 0 || node.name.endsWith(QLatin1String(".desktop"))) {
            continue;
        }
        const int before = m_tree.child(node.parent, node.name.left(dot));
        if (before != PathTree::Root && m_tree.node(before).declaredBelow > 0) {
            const QString meant = m_tree.pathOf(before) + QLatin1Char('/') + node.name.mid(dot + 1);
            m_isReported[i] = true;
            reportPath(
                m_tree.node(firstDeclaredIn(i)).declarations.first(), Tag::PathSeparator,
                QStringLiteral("the names in a path are separated by \"/\": did you mean %1?").arg(quoted(meant)));
        }
    }
}

/// Reports the first name in the path of @p declared that no entry declares.
void DirectoryRules::checkParentsOf(const PathTree::Node &declared)
{
    QVector<int> undeclared; // the deepest first
    for (int node = declared.parent; node != PathTree::Root && !m_isReported.at(node);
         node = m_tree.node(node).parent) {
        if (!m_tree.isDeclared(node)) {
            m_isReported[node] = true;
            undeclared.append(node);
        }
    }
    for (int i = undeclared.size() - 1; i >= 0; --i) {
        const int node = undeclared.at(i);
        const QString meant = spellingOf(node);
        if (!meant.isEmpty()) {
            reportPath(declared.declarations.first(), Tag::PathMisspelt,
                       QStringLiteral("no entry declares %1: did you mean %2?")
                           .arg(quoted(m_tree.pathOf(node)), quoted(meant)));
            return;
        }
    }
    const auto missing = std::find_if(undeclared.crbegin(), undeclared.crend(), [this](int node) {
        return m_tree.node(node).parent != PathTree::Root; // a program shows roots without an entry
    });
    if (missing != undeclared.crend()) {
        reportPath(declared.declarations.first(), Tag::UndeclaredParent,
                   QStringLiteral("no checked file declares %1, which this path leads through")
                       .arg(quoted(m_tree.pathOf(*missing))));
    }
}

/// Returns the path of a node that @p node, which is undeclared, may be a misspelling of. Empty when there is none.
QString DirectoryRules::spellingOf(int node) const
{
    const PathTree::Node &unknown = m_tree.node(node);
    const QVector<int> &siblings = m_tree.node(unknown.parent).children;
    if (m_tree.isDeclared(node) || siblings.size() > MaxSiblings) {
        return {};
    }
    for (const int sibling : siblings) {
        const PathTree::Node &other = m_tree.node(sibling);
        const bool isLikelier = !other.declarations.isEmpty() || other.declaredBelow > unknown.declaredBelow;
        if (sibling != node && isLikelier && isMisspelling(unknown.name, other.name)) {
            return m_tree.pathOf(sibling);
        }
    }
    if (unknown.parent == PathTree::Root && !knownRoots().contains(unknown.name)) {
        const QStringList roots = knownRoots();
        const auto meant = std::find_if(roots.cbegin(), roots.cend(), [&unknown](const QString &root) {
            return isMisspelling(unknown.name, root);
        });
        return meant == roots.cend() ? QString() : *meant;
    }
    return {};
}
}
