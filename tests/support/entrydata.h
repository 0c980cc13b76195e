// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/treeitem.h"
#include "text.h"

/// Returns the data of an entry that @p file declares.
inline QVariantMap entry(const char *file, const QVariantMap &more = {})
{
    QVariantMap data = more;
    data.insert(text("from_file"), text(file));
    return data;
}
