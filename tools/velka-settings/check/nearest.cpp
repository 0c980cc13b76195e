// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nearest.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace Check
{
namespace
{
/// Returns how many letters have to be changed, added or removed to turn @p a into @p b.
int distance(const QString &a, const QString &b)
{
    QVector<int> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = std::exchange(row[0], i + 1);
        for (int j = 0; j < b.size(); ++j) {
            const int change = diagonal + (a.at(i) == b.at(j) ? 0 : 1);
            diagonal = row.at(j + 1);
            row[j + 1] = std::min({change, diagonal + 1, row.at(j) + 1});
        }
    }
    return row.last();
}

/// Returns @p name without differences that do not count: case, and how words are joined.
QString simplified(const QString &name)
{
    QString simple = name.toLower();
    simple.remove(QLatin1Char('_')).remove(QLatin1Char('-')).remove(QLatin1Char(' '));
    return simple;
}
}

QString nearest(const QString &name, const QStringList &known)
{
    const QString simple = simplified(name);
    QString best;
    int bestDistance = simple.size() / 3 + 1;
    for (const QString &candidate : known) {
        if (qAbs(candidate.size() - name.size()) > name.size() / 2 + 2) {
            continue;
        }
        const int changes = distance(simple, simplified(candidate));
        if (changes < bestDistance) {
            best = candidate;
            bestDistance = changes;
        }
    }
    return best;
}
}
