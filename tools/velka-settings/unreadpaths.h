// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

class Inspection;

/// Returns where loaded files contain the path @p node although the library does not read it there, as under a
/// misspelt key or in an entry: "sound.json, entries[0].paht".
QStringList unreadPlacesOf(const QString &node, const Inspection &inspection);
