// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "text.h"

#include <QFile>

/// As long as it lives, dconf's directory cannot be written.
class ReadOnlyConfiguration
{
public:
    ReadOnlyConfiguration()
    {
        set(QFile::ReadOwner | QFile::ExeOwner);
    }

    ~ReadOnlyConfiguration()
    {
        set(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    ReadOnlyConfiguration(const ReadOnlyConfiguration &) = delete;
    ReadOnlyConfiguration &operator=(const ReadOnlyConfiguration &) = delete;

private:
    static void set(QFile::Permissions permissions)
    {
        if (!QFile::setPermissions(qEnvironmentVariable("XDG_CONFIG_HOME") + text("/dconf"), permissions)) {
            qFatal("The permissions of dconf's directory cannot be changed");
        }
    }
};
