// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonObject>

namespace Check
{
/// Returns the schema of registration files, which is also installed.
const QJsonObject &registrationSchema();
/// Returns the definition @p name in the schema.
QJsonObject schemaDefinition(const QString &name);
/// Returns the schemas of the members of an object with @p schema, by key.
QJsonObject schemaProperties(const QJsonObject &schema);
}
