// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "entrydifference.h"

class Terminal;

/// Output formats of a difference.
namespace DifferenceFormats
{
void printText(const EntryDifference &difference, const Terminal &out);
void printMarkdown(const EntryDifference &difference, const Terminal &out);
QJsonObject toJson(const EntryDifference &difference);
}
