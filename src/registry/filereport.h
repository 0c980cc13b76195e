// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/registrationfile.h"

#include <QByteArray>
#include <QJsonParseError>

struct EntrySources;

enum class FileFate {
    Loaded,
    Unreadable,
    NotJson,
    NotAnObject,
    LacksGroup, ///< the user is not in the required group
    HasGroup, ///< the user is in the disabled group
};

/// What came of one registration file.
struct FileReport {
    QString name;
    FileFate fate = FileFate::Unreadable;
    QByteArray content; ///< without carriage returns, empty when it is unreadable
    QJsonParseError error; ///< when it is no JSON
    std::optional<RegistrationFile> file; ///< when it is a JSON object
};

/// Reads @p fileName of the entries directory and asks whether the user is to have it. What is wrong is logged.
FileReport readRegistrationFile(const EntrySources &sources, const QString &fileName);
/// Whether the groups that @p file names let the user have its entries: Loaded, LacksGroup or HasGroup.
FileFate fateByGroups(const EntrySources &sources, const RegistrationFile &file);
