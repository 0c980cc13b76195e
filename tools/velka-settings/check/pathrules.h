// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "document.h"

namespace Check
{
/// The names of the place that @p path leads to.
QStringList splitPath(const QString &path);
QString entryPath(const Entry &entry);
void checkSlashes(const QString &path, const Json::Value &written, Findings *findings);
}
