// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonArray>
#include <QStringList>

#include <optional>

class QJsonObject;
struct QJsonParseError;

/// What one registration file says; a key that is missing or of the wrong type is empty.
struct RegistrationFile {
    QString requiredGroup; ///< only for members
    QString disabledGroup; ///< not for members
    QString translationCatalog;
    QString complementaryTranslationCatalog;
    QJsonArray entries;
};

/// Whether a file in the entries directory is loaded, by its name.
bool isRegistrationFile(const QString &fileName);

/// Parses @p json. Nothing, with a warning that names @p fileName, when it is no JSON or no object.
std::optional<RegistrationFile> parseRegistrationFile(const QByteArray &json, const QString &fileName,
                                                      QJsonParseError *error = nullptr);

/// The path that @p entry declares, as it is spelled there. Nothing when it declares none.
std::optional<QString> pathOfEntry(const QJsonObject &entry);
/// The names of the nodes down to @p path.
QStringList splitPath(const QString &path);
