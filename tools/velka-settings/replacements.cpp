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

/// Whether nothing but its file or a mask keeps @p declaration from being used.
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

/// A file that is never loaded for its name has no place among the others before it gets another name.
bool isAmongOthers(const Declaration &declaration)
{
    return declaration.obstacles.isEmpty() || declaration.obstacles.first().kind != Obstacle::FileName;
}

/// The places of declarations, of which there may be very many.
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

/// What can replace a declaration that stands before it.
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

    /// Once a masked path is shown again, it is in all of its places.
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
    UsableDeclarations inFile; // of one that is not loaded
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
