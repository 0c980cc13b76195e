// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>

struct QJsonParseError;

/// A place in a text, counted from 1. Columns count UTF-16 units, as editors do, and leave out a byte order mark.
struct Place {
    int line = 1;
    int column = 1;
};

/// Converts byte offsets of a text to places. Ascending offsets are cheap.
class PlaceFinder
{
public:
    explicit PlaceFinder(const QByteArray &text);
    Place at(int offset);

private:
    const QByteArray &m_text;
    int m_offset;
    Place m_place;
};

/// Returns the offset of the first byte of @p text behind a byte order mark.
int startOf(const QByteArray &text);

/// Returns the offset of the byte of @p text that Qt's parser rejected. When the text ends too early, that is the last
/// byte.
int offsetOfError(const QByteArray &text, const QJsonParseError &error);
