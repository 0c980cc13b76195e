// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "tool.h"

#include <QTemporaryDir>

/// A directory with the files that commands write.
class KitDirectory
{
public:
    QString path(const QString &name) const;
    void write(const QString &name, const QByteArray &content) const;
    QByteArray read(const QString &name) const; ///< "no file" if it does not exist
    /// Runs the tool with paths in place of arguments that begin with "@".
    Tool::Result run(const QStringList &arguments) const;
    /// Does the same in a shell that has run @p commands.
    Tool::Result runAfter(const QString &commands, const QStringList &arguments) const;

private:
    QStringList withPaths(const QStringList &arguments) const;

    QTemporaryDir m_directory;
};
