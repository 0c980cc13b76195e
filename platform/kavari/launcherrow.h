// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QCollator>
#include <QObject>
#include <QPointer>
#include <QString>

#include <limits>

/// A row with its sort key: first the rows that the menu file orders, then the others by title.
struct LauncherRow {
    static constexpr int Unordered = std::numeric_limits<int>::max();

    QPointer<QObject> object; ///< null if it was deleted and the row is about to be removed
    int rank; ///< the place in the menu file or Unordered
    QCollatorSortKey title;
    QString fileID;
};

inline bool operator<(const LauncherRow &a, const LauncherRow &b)
{
    if (a.rank != b.rank) {
        return a.rank < b.rank;
    }
    const int order = a.title.compare(b.title);
    return order != 0 ? order < 0 : a.fileID < b.fileID;
}
