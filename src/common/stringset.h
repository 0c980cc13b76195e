// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QSet>
#include <QStringList>

inline QSet<QString> toSet(const QStringList &list)
{
    return {list.cbegin(), list.cend()};
}
