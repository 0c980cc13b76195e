// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

#include <optional>

/// The files that the command line names.
namespace UserFile
{
/// Returns the content of the file at @p path. Returns nothing, and sets @p problem, when it is not a regular file or
/// cannot be read.
std::optional<QByteArray> read(const QString &path, QString *problem);
/// Replaces the file at @p path by one with @p content, and with @p permissions if there are any. Returns what is wrong,
/// if anything: then an earlier file stays.
QString write(const QString &path, const QByteArray &content, QFileDevice::Permissions permissions = {});
}
