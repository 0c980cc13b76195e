// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QSet>
#include <QString>
#include <QVector>

class TreeItem;

/// The answer of one kind of favourites for an entry, and the rule behind it.
struct FavoritesAnswer {
    QString kind;
    bool isAdmitted;
    QString rule;
};

QVector<FavoritesAnswer> favoritesAnswers(const TreeItem *item, const QSet<QString> &blacklist);
