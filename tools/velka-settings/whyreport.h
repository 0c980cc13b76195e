// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "favoritestext.h"
#include "whytext.h"

#include <QJsonObject>

class Inspection;
class Terminal;
class TreeItem;

/// The report on a path: whether it is in the tree, its declarations, title and favourites.
class WhyReport
{
public:
    WhyReport(const Inspection &inspection, const QString &node);

    bool isPresent() const;
    void print(const Terminal &out) const;
    QJsonObject toJson() const;

private:
    void printDeclarations(const Terminal &out) const;
    void printTitles(const Terminal &out) const;
    void printFavorites(const Terminal &out) const;
    QStringList notesOn(const Declaration &declaration) const;
    QStringList notesOnSpelling(const Declaration &declaration) const;
    QJsonArray declarationsToJson() const;
    QJsonObject favoritesToJson() const;

    const Inspection &m_inspection;
    const QString m_node;
    const Declarations m_declarations;
    const Verdict m_verdict;
    const WhyText m_text;
    const QSet<QString> m_blacklist;
    const TreeItem *const m_item; ///< null when there is no node
};
