// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QTextStream;

/// Prints every entry of the settings tree: name, title, type and registration file, indented by its depth.
void printTree(QTextStream &out);
