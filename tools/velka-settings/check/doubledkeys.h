// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QByteArray;

namespace Check
{
class Findings;

/// Reports each key of @p text, which must be JSON, that stands in its object before.
void reportDoubledKeys(const QByteArray &text, Findings *findings);
}
