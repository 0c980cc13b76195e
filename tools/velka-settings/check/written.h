// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

#include <vector>

class QByteArray;

namespace Check
{
class Findings;

/// A JSON value as it is written: its place, and what Qt's reader does not keep.
struct Written {
    enum Kind { Null, Boolean, Integer, Fraction, String, Array, Object };

    bool isNumber() const;
    /// Returns the member of an object with @p key, null when there is none.
    const Written *member(QLatin1String key) const;

    Kind kind;
    int start; ///< offset of the first byte
    int end; ///< offset behind the last byte
    int keyStart; ///< offset of the key, of members only
    QString key; ///< of members only
    std::vector<Written> children; ///< the elements of an array; the members of an object, without lost ones
};

/// Reads @p text, which Qt has to accept as JSON. Reports doubled keys and what is not JSON although Qt accepts it.
Written readWritten(const QByteArray &text, Findings *findings);
}
