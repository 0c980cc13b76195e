// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonValue>
#include <QString>

/// Values of entries as text.
namespace Values
{
/// JSON in one line, with escapes in the place of what would control the terminal. "(none)" when it is undefined.
QString toText(const QJsonValue &value);
}
