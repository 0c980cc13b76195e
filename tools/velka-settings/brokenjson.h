// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QStringList>

struct QJsonParseError;

/// Functions for text that is not JSON.
namespace BrokenJson
{
/// Returns the place and the kind of @p error: "line 3, column 14: a comma is missing here".
QString errorOf(const QByteArray &text, const QJsonParseError &error);
/// Returns the string values of the keys called "path".
QStringList paths(const QByteArray &text);
}
