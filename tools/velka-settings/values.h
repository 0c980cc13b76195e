// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonValue>
#include <QString>

/// Values of entries as text.
namespace Values
{
/// Returns printable JSON on one line, "(none)" when @p value is undefined.
QString toText(const QJsonValue &value);
}
