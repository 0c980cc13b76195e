// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/registrationfile.h"

#include <QByteArray>
#include <QJsonParseError>

struct EntrySources;

enum class FileStatus {
    Loaded,
    Unreadable,
    NotJson,
    NotAnObject,
    LacksGroup, ///< the user is not in the required group
    HasGroup, ///< the user is in the disabled group
};

/// The result of reading one registration file.
struct FileReport {
    QString name;
    FileStatus status = FileStatus::Unreadable;
    QString shortage; ///< why descriptors or memory were short: the file is to be read again
    QByteArray content; ///< without carriage returns, empty when it is unreadable
    QJsonParseError error; ///< when it is not JSON
    std::optional<RegistrationFile> file; ///< when it is a JSON object
};

/// Reads @p fileName of the entries directory and checks the groups of the user. Mistakes are logged, a
/// shortage of descriptors or memory is not.
FileReport readRegistrationFile(const EntrySources &sources, const QString &fileName);
/// Returns Loaded, LacksGroup or HasGroup, by the groups that @p file names.
FileStatus statusByGroups(const EntrySources &sources, const RegistrationFile &file);
