// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// Generated applications in the user's directory, in place of the machine's.
namespace InstalledApplications
{
/// Installs @p count applications in place of the previous ones. Ends the process outside the sandbox.
void install(int count);
/// Writes the desktop file of one application. install() leaves @p comment empty.
void write(int index, const QByteArray &comment);
QString id(int index);
QString serviceName(int index);
}
