// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QVector>

/// Valid and invalid names that a registration file can give to a call.
namespace CallNames
{
enum Part { Service, Path, Interface, Method };
constexpr int PartCount = 4;

/// The outcome of a call with such a name.
enum class Outcome {
    Sent, ///< the bus receives it
    RefusedByQt, ///< the name is invalid, and Qt refuses it
    RefusedBefore, ///< Qt would send it, which would end the process or the connection
};

struct Name {
    QByteArray title;
    QString value;
    Outcome outcomes[PartCount]; ///< for each part of the call that can have the name
};

QVector<Name> all();
/// Returns "service", "path", "interface" or "method".
const char *title(Part part);
}
