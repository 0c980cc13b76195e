// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonObject>

namespace Check
{
/// The schema of registration files, as it is installed.
const QJsonObject &registrationSchema();
/// Returns the schema of the values called @p name, which others refer to.
QJsonObject schemaDefinition(const QString &name);
/// Returns the schemas of the members of an object with @p schema, by key.
QJsonObject schemaProperties(const QJsonObject &schema);
}
