// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "finding.h"

#include <QHash>

#include <vector>

namespace Check
{
/// The severity of each tag: its own, or what the user made of it.
class Severities
{
public:
    void override(Tag tag, Severity severity);
    Severity of(Tag tag) const;

private:
    QHash<int, Severity> m_overrides;
};

using Report = std::vector<FileFindings>;

/// "file:line:column: severity: text [tag]", a line a finding.
QByteArray toText(const Report &report, const Severities &severities, bool inColour);
QByteArray toJson(const Report &report, const Severities &severities);
QByteArray toSarif(const Report &report, const Severities &severities);
/// A test case for each file. It fails for its errors, and for its warnings when @p strict.
QByteArray toJUnit(const Report &report, const Severities &severities, bool strict);
}
