// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/toqml.h"

#include "registry/treeitem.h"

#include <QQmlEngine>

QObject *toQml(TreeItem *item)
{
    if (item) {
        QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    }
    return item;
}
