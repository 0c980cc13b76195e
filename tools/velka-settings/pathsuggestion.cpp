// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pathsuggestion.h"

#include "nearest.h"

#include <algorithm>
#include <climits>

namespace
{
constexpr int None = INT_MAX;

QStringList namesOf(const QString &path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

/// Returns the number of names that differ when each of them can be a misspelling of the other's, None otherwise.
int misspeltNames(const QStringList &names, const QStringList &other)
{
    int misspelt = 0;
    for (int i = 0; i < names.size(); ++i) {
        if (names.at(i) == other.at(i)) {
            continue;
        }
        if (!isMisspelling(names.at(i), other.at(i))) {
            return None;
        }
        ++misspelt;
    }
    return misspelt;
}

/// Returns how unlikely it is that @p names were meant to be @p other, None when it is not likely at all.
int unlikeliness(const QStringList &names, const QStringList &other)
{
    constexpr int OfLeftOutNames = 100;
    if (names.size() == other.size()) {
        return misspeltNames(names, other);
    }
    if (names.size() > other.size()) {
        // Nested too deeply, or below another root
        const bool endsAlike = names.mid(names.size() - other.size()) == other
                               || (names.first() == other.first() && names.last() == other.last());
        return endsAlike ? OfLeftOutNames + names.size() - other.size() : None;
    }
    const int misspelt = misspeltNames(names, other.mid(other.size() - names.size()));
    if (misspelt != None) {
        return OfLeftOutNames + 10 * misspelt + other.size() - names.size();
    }
    const bool isBetween = names.first() == other.first() && names.last() == other.last();
    return isBetween ? OfLeftOutNames + other.size() - names.size() : None;
}
}

QString suggestPath(const QString &path, const QStringList &declared)
{
    const QStringList names = namesOf(path);
    QString best;
    int least = None;
    for (const QString &candidate : declared) {
        const QStringList other = namesOf(candidate);
        if (names.isEmpty() || other.isEmpty() || other == names) {
            continue;
        }
        const int value = path.compare(candidate, Qt::CaseInsensitive) == 0 ? 0 : unlikeliness(names, other);
        if (value < least) {
            least = value;
            best = candidate;
        }
    }
    return best;
}
