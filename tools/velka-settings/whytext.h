// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "verdict.h"

class Inspection;

/// The texts of verdicts and obstacles.
class WhyText
{
public:
    explicit WhyText(const Inspection &inspection);

    /// Returns the text after "PATH is in the tree: " or "PATH is not in the tree: ".
    QString reasonOf(const Verdict &verdict, const Declarations &declarations, const QString &node) const;
    QString obstacleText(const Declaration &declaration, const Obstacle &obstacle) const;
    /// These return identifiers for programs.
    static QString kindOf(const Verdict &verdict);
    static QString kindOf(const Obstacle &obstacle);

private:
    QString absenceOf(const Declarations &declarations, const QString &node) const;

    const Inspection &m_inspection;
};
