// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nearest.h"

#include <QRegularExpression>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace
{
/// Returns @p name without differences that do not count: case, and how words are joined.
QString simplified(const QString &name)
{
    QString simple = name.toLower();
    simple.remove(QLatin1Char('_')).remove(QLatin1Char('-')).remove(QLatin1Char(' '));
    return simple;
}

/// Returns whether @p a and @p b are equal but for the numbers in them, as names of a series are.
bool differInNumbers(const QString &a, const QString &b)
{
    static const QRegularExpression digits(QStringLiteral("\\d"));
    return QString(a).remove(digits) == QString(b).remove(digits);
}

bool areSwapped(const QString &a, int i, const QString &b, int j)
{
    return i > 0 && j > 0 && a.at(i) == b.at(j - 1) && a.at(i - 1) == b.at(j);
}
}

int editDistance(const QString &a, const QString &b)
{
    QVector<int> beforeLast;
    QVector<int> last(b.size() + 1);
    std::iota(last.begin(), last.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        QVector<int> row{i + 1};
        row.reserve(b.size() + 1);
        for (int j = 0; j < b.size(); ++j) {
            const int change = last.at(j) + (a.at(i) == b.at(j) ? 0 : 1);
            int least = std::min({change, last.at(j + 1) + 1, row.at(j) + 1});
            if (areSwapped(a, i, b, j)) {
                least = std::min(least, beforeLast.at(j - 1) + 1);
            }
            row.append(least);
        }
        beforeLast.swap(last);
        last.swap(row);
    }
    return last.last();
}

bool isMisspelling(const QString &name, const QString &other)
{
    constexpr int LongName = 6;
    const QString a = simplified(name);
    const QString b = simplified(other);
    const int allowed = qMin(a.size(), b.size()) < LongName ? 1 : 2;
    return name != other && (a == b || !differInNumbers(a, b)) && qMin(a.size(), b.size()) > 2
           && qAbs(a.size() - b.size()) <= allowed && editDistance(a, b) <= allowed;
}

QString nearest(const QString &name, const QStringList &known)
{
    constexpr int ShortName = 3;
    const QString simple = simplified(name);
    QString best;
    int bestDistance = simple.size() / 3 + 1;
    for (const QString &candidate : known) {
        const QString other = simplified(candidate);
        const bool isOtherWord = simple.size() <= ShortName
                                 && (simple.isEmpty() || !other.startsWith(simple.at(0))); // "age" is not "page"
        if (isOtherWord || qAbs(candidate.size() - name.size()) > name.size() / 2 + 2) {
            continue;
        }
        const int changes = editDistance(simple, other);
        if (changes < bestDistance) {
            best = candidate;
            bestDistance = changes;
        }
    }
    return best;
}
