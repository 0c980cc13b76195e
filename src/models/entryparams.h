// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/treeitem.h"

/// Returns the "params" of @p item, empty when they are not a map.
inline QVariantMap paramsOf(const TreeItem *item)
{
    return item->value(QStringLiteral("params")).toMap();
}
