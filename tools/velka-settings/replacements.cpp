// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "replacements.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace
{
constexpr int MaxNamed = 8;

bool isMasked(const Declaration &declaration)
{
    return !declaration.obstacles.isEmpty() && declaration.obstacles.last().kind == Obstacle::Masked;
}

/// Returns whether @p declaration has no obstacles, or only those of its file and a mask.
bool isUsable(const Declaration &declaration)
{
    return std::all_of(declaration.obstacles.cbegin(), declaration.obstacles.cend(), [](const Obstacle &obstacle) {
        return obstacle.kind < Obstacle::Pathless || obstacle.kind == Obstacle::Masked;
    });
}

bool isLoaded(const Declaration &declaration)
{
    return declaration.obstacles.isEmpty() || declaration.obstacles.first().kind == Obstacle::Masked;
}

/// Returns whether the file has a place in the order of loading. A file that is never loaded has none before it is
/// renamed.
bool isAmongOthers(const Declaration &declaration)
{
    return declaration.obstacles.isEmpty() || declaration.obstacles.first().kind != Obstacle::FileName;
}

/// The places of declarations as text, which names the first ones and counts the others.
class Places
{
public:
    explicit Places(const QVector<Declaration> &declarations)
        : m_declarations(declarations)
    {
    }

    void add(const QVector<int> &positions)
    {
        m_count += positions.size();
        for (int i = 0; i < positions.size() && m_named.size() < MaxNamed; ++i) {
            m_named.append(m_declarations.at(positions.at(i)).place());
        }
    }

    QString text() const
    {
        const QString named = m_named.join(QLatin1String("; "));
        const int others = m_count - m_named.size();
        return others == 0 ? named : QStringLiteral("%1; and %2 more").arg(named).arg(others);
    }

private:
    const QVector<Declaration> &m_declarations;
    QStringList m_named;
    int m_count = 0;
};

/// The declarations that can replace an earlier one.
class UsableDeclarations
{
public:
    void insert(const Declaration &declaration, int position)
    {
        if (isMasked(declaration)) {
            m_masked[declaration.path].append(position);
        } else {
            m_shown[declaration.node()].append(position);
        }
    }

    /// A masked declaration can be replaced by all masked ones of its path: they are shown again together.
    void addReplacing(const Declaration &declaration, Places *places) const
    {
        places->add(m_shown.value(declaration.node()));
        if (isMasked(declaration)) {
            places->add(m_masked.value(declaration.path));
        }
    }

private:
    QHash<QString, QVector<int>> m_shown; ///< node -> positions, the last one first
    QHash<QString, QVector<int>> m_masked; ///< path as it is spelled -> positions, the last one first
};
}

void findReplaced(QVector<Declaration> *declarations)
{
    UsableDeclarations loaded;
    UsableDeclarations inFile; // of a file that is not loaded
    QString file;
    for (int i = declarations->size() - 1; i >= 0; --i) {
        Declaration &declaration = (*declarations)[i];
        if (declaration.file != file) {
            file = declaration.file;
            inFile = {};
        }
        if (!isUsable(declaration)) {
            continue;
        }
        Places later(*declarations);
        if (isAmongOthers(declaration)) {
            loaded.addReplacing(declaration, &later);
        }
        if (!isLoaded(declaration)) {
            inFile.addReplacing(declaration, &later);
        }
        (isLoaded(declaration) ? loaded : inFile).insert(declaration, i);
        if (!later.text().isEmpty()) {
            declaration.obstacles.append({Obstacle::Replaced, later.text()});
        }
    }
}
