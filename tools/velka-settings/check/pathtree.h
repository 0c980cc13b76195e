// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "finding.h"

#include <QHash>
#include <QJsonObject>
#include <QPair>
#include <QStringList>

#include <vector>

namespace Check
{
/// A path of an entry or in the favourites blacklist.
struct WrittenPath {
    QString path;
    int offset;
    Place place;
    QJsonObject entry = {}; ///< the declaring entry, as the library reads it
};

/// The contents of a file that matter for the other files.
struct FileSummary {
    QString path;
    QString requiredGroup;
    QString disabledGroup;
    QVector<WrittenPath> declared; ///< in the order of the file
    QVector<WrittenPath> blacklisted;
    QStringList meant; ///< paths that a broken file, or one that is never loaded, seems to declare
    bool isUnclear = false; ///< whether the file may declare anything
    bool isInstalled = false; ///< whether nothing is reported about the file
};

/// A declaration of a path: by its file, and as it is written there.
struct Declared {
    int file;
    const WrittenPath *written;
};

/// The nodes of the paths that files declare together.
class PathTree
{
public:
    struct Node {
        int parent;
        QString name;
        QVector<Declared> declarations;
        QVector<int> children;
        int declaredBelow = 0; ///< the declarations of this node and those below it
        bool isMeant = false; ///< whether a broken file seems to declare it
    };
    static constexpr int Root = 0;

    explicit PathTree(const std::vector<FileSummary> &files);

    const std::vector<Node> &nodes() const;
    const Node &node(int number) const;
    bool isEmpty() const; ///< whether nothing is declared
    bool isDeclared(int number) const; ///< or meant to be
    int find(const QString &path) const; ///< returns Root when there is no such node
    int child(int parent, const QString &name) const; ///< the same
    QString pathOf(int number) const;
    QStringList declaredPaths() const;

private:
    int insert(const QString &path);
    void addDeclaration(int number, const Declared &declaration);

    std::vector<Node> m_nodes;
    QHash<QPair<int, QString>, int> m_children;
    bool m_isEmpty = true;
};
}
