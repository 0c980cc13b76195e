// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "finding.h"

#include <QHash>

#include <vector>

namespace Check
{
/// The severity of each tag, which the user can override.
class Severities
{
public:
    void override(Tag tag, Severity severity);
    Severity of(Tag tag) const;

private:
    QHash<int, Severity> m_overrides;
};

using Report = std::vector<FileFindings>;

/// Returns the findings, each a line "file:line:column: severity: text [tag]" and the place in the file, and a summary.
QByteArray toText(const Report &report, const Severities &severities, bool inColour);
QByteArray toJson(const Report &report, const Severities &severities);
QByteArray toSarif(const Report &report, const Severities &severities);
/// Returns a test case for each file, which fails if the file has errors or, when @p strict, warnings.
QByteArray toJUnit(const Report &report, const Severities &severities, bool strict);
}
