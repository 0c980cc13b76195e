// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

class QByteArray;

namespace Check
{
/// A part of a line around a place in it, without characters that move the cursor of a terminal.
struct Excerpt {
    QString text;
    int caret; ///< the position of the place in the text
};

Excerpt excerptAt(const QByteArray &text, int offset);
}
