// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "models/settingsmodel.h"
#include "registry/treeitem.h"
#include "text.h"

// Functions that read the rows of a SettingsModel.

inline QVariant value(const SettingsModel &model, int row, int role)
{
    return model.data(model.index(row), role);
}

inline TreeItem *item(const SettingsModel &model, int row)
{
    return qobject_cast<TreeItem *>(value(model, row, SettingsModel::ObjectRole).value<QObject *>());
}

inline QStringList names(const SettingsModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names.append(item(model, row) ? item(model, row)->name() : text("(dead)"));
    }
    return names;
}
