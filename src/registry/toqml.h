// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

class QObject;
class TreeItem;

/// Returns @p item, marked so that QML never deletes it.
VELKASETTINGS_PRIVATE_EXPORT QObject *toQml(TreeItem *item);
