// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QStringList>

/// Runs velka-settings.
namespace Tool
{
struct Result {
    int exitCode;
    QByteArray output;
    QByteArray errors;

    QJsonObject json() const;
};

Result run(const QStringList &arguments);
Result runWithInput(const QStringList &arguments, const QByteArray &input);
/// Runs it with a delay of @p ms milliseconds each time that @p file is opened.
Result runWithSlowFile(const QStringList &arguments, const QString &file, int ms);
/// Runs it on a terminal. Returns the output and the errors.
QByteArray runOnTerminal(const QStringList &arguments);

using Files = QMap<QString, QByteArray>; ///< name -> content
/// Replaces the contents of @p directory by @p files.
void writeFiles(const QString &directory, const Files &files);
}
