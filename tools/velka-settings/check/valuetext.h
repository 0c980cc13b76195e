// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QJsonValue;
class QString;

namespace Check
{
/// Returns what a value is, with the value if it is short: the string "10".
QString describe(const QJsonValue &value);
}
