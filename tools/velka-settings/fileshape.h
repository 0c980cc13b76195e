// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QByteArray;

/// The kind of file that a JSON file seems to be.
enum class FileShape {
    Registration,
    Other, ///< another program
    Unclear, ///< empty, or not JSON
};

FileShape shapeOf(const QByteArray &text);
