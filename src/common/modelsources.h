// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

class QAbstractItemModel;

/// Returns true if @p model is @p source, or a model that gets rows from it: a proxy, a list of tables, or any model
/// with a property sourceModel.
VELKASETTINGS_PRIVATE_EXPORT bool isBuiltOn(const QAbstractItemModel *model, const QAbstractItemModel *source);
