// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "place.h"
#include "tags.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Check
{
struct Finding {
    Tag tag;
    int offset; ///< of a byte in the text as the library parses it
    QString text;
    Place place;
};

/// The findings of a file, sorted by place.
struct FileFindings {
    QString path; ///< as it was given
    QVector<Finding> findings;
    QByteArray text; ///< as the library parses it; empty without findings
    bool isFile = true; ///< not a directory
};

/// Returns the printable form of @p text, or of its start and an ellipsis if it is long.
QString abridged(const QString &text);
/// Returns the same between quotation marks.
QString quoted(const QString &text);
}
