// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonArray>
#include <QString>

#include <optional>

/// What one registration file says; a key that is missing or of the wrong type is empty.
struct RegistrationFile {
    QString requiredGroup; ///< only for members
    QString disabledGroup; ///< not for members
    QString translationCatalog;
    QString complementaryTranslationCatalog;
    QJsonArray entries;
};

/// Parses @p json. Nothing, with a warning that names @p fileName, when it is no JSON or no object.
std::optional<RegistrationFile> parseRegistrationFile(const QByteArray &json, const QString &fileName);
