// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QObject;
class TreeItem;

/// @p item, safe to hand to QML, which must never delete it.
QObject *toQml(TreeItem *item);
