// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "tags.h"

#include <QString>
#include <QVector>

namespace Check
{
/// Where something stands in a file, counted from 1; columns in UTF-16 units, as editors count.
struct Place {
    int line = 1;
    int column = 1;
};

struct Finding {
    Tag tag;
    int offset; ///< byte of the text as the library parses it
    QString text;
    Place place;
};

/// The findings of one file, by place.
struct FileFindings {
    QString path; ///< as it was given
    QVector<Finding> findings;
};

/// @p text on one line, cut short, without characters that a terminal would act upon.
QString printable(const QString &text);
QString quoted(const QString &text);
}
