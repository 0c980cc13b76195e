// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QVector>

/// Names as a registration file may give them to a call, good ones and bad ones.
namespace CallNames
{
enum Part { Service, Path, Interface, Method };
constexpr int PartCount = 4;

/// What happens to a call with such a name.
enum class Outcome {
    Sent, ///< the bus gets it
    RefusedByQt, ///< the name is against the grammar, and Qt says so
    RefusedBefore, ///< Qt would send it, and the process or the connection would end
};

struct Name {
    QByteArray title;
    QString value;
    Outcome outcomes[PartCount]; ///< for each part that the name may stand in
};

QVector<Name> all();
/// "service", "path", "interface" or "method"
const char *title(Part part);
}
