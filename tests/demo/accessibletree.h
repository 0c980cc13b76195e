// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

class QAccessibleInterface;

/// Returns what a screen reader says: the role, the name, the description in parentheses, and the states.
QString describe(const QAccessibleInterface &control);

/// Returns a line for each visible control, indented by its depth. Items without a role and a name are left out.
QString accessibleTree(const QAccessibleInterface &root);
