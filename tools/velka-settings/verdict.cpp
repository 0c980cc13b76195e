// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "verdict.h"

namespace
{
/// Returns the step at which the library stops for @p declaration.
int progressOf(const Declaration &declaration)
{
    return declaration.obstacles.isEmpty() ? Obstacle::Replaced + 1 : declaration.obstacles.first().kind;
}

int closestToTree(const QVector<Declaration> &declarations)
{
    int closest = 0;
    for (int i = 1; i < declarations.size(); ++i) {
        if (progressOf(declarations.at(i)) >= progressOf(declarations.at(closest))) {
            closest = i;
        }
    }
    return closest;
}
}

Verdict verdictOn(const Declarations &declarations, const QString &node)
{
    const QVector<Declaration> found = declarations.ofNode(node);
    if (found.isEmpty()) {
        return {declarations.unknownFiles().isEmpty() ? Verdict::Undeclared : Verdict::InUnknownFile, {}, -1};
    }
    const int decisive = closestToTree(found);
    const bool isPresent = found.at(decisive).obstacles.isEmpty();
    return {isPresent ? Verdict::Present : Verdict::KeptOut, found, decisive};
}
