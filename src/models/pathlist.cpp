// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/pathlist.h"

QStringList PathList::appended(const QStringList &paths, const QString &path)
{
    return paths + QStringList(path);
}

QStringList PathList::removedAll(const QStringList &paths, const QString &path)
{
    QStringList rest = paths;
    rest.removeAll(path);
    return rest;
}

QStringList PathList::moved(const QStringList &paths, const QString &path, const QString &target)
{
    const int from = paths.indexOf(path);
    const int to = paths.indexOf(target);
    QStringList result = paths;
    if (from >= 0 && to >= 0) {
        result.move(from, to);
    }
    return result;
}
