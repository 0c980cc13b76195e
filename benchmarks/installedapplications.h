// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// Made-up applications in the user's directory, in the place of all that the machine has.
namespace InstalledApplications
{
/// Installs @p count of them instead of those before. Ends the process outside the sandbox.
void install(int count);
/// Writes the desktop file of one, as install() does it with an empty @p comment.
void write(int index, const QByteArray &comment);
QString id(int index);
QString serviceName(int index);
}
