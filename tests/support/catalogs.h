// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// Translation catalogs of the tests in the directory that the library reads them from, in the sandbox.
namespace Catalogs
{
/// Returns the path of the installed catalog @p name.
QString path(const QByteArray &name);
/// Copies the compiled catalogs/@p source.ts to the system's catalog @p name.
void install(const QByteArray &source, const QByteArray &name);
void removeAll();
}
