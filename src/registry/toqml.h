// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QObject;
class TreeItem;

/// Returns @p item, marked so that QML never deletes it.
QObject *toQml(TreeItem *item);
