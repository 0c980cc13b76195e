// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

class TreeItem;

/// Texts of untrusted files and callers on the bus, which carries neither null characters nor halves of characters, and
/// disconnects a program that sends too much.
namespace BusTexts
{
/// Returns whether @p location names the same entry after it was on the bus.
bool isIdentifier(const QString &location);
/// Returns the beginning of @p text, 500 letters at most.
QString shortened(const QString &text);
/// Returns the name of the icon of @p item, empty if it is not one of the theme, such as the path of a file.
QString themeIconOf(const TreeItem &item);
}
