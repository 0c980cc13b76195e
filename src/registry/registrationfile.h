// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonArray>
#include <QStringList>

#include <optional>

class QJsonObject;
struct QJsonParseError;

/// The content of one registration file. A key that is missing or of the wrong type is empty.
struct RegistrationFile {
    QString requiredGroup; ///< only for members
    QString disabledGroup; ///< not for members
    QString translationCatalog;
    QString complementaryTranslationCatalog;
    QJsonArray entries;
};

/// Returns whether a file of this name in the entries directory is loaded.
bool isRegistrationFile(const QString &fileName);

/// Parses @p json. Returns nothing, with a warning that names @p fileName, when it is not JSON or not an object.
std::optional<RegistrationFile> parseRegistrationFile(const QByteArray &json, const QString &fileName,
                                                      QJsonParseError *error = nullptr);

/// Returns the path that @p entry declares, as it is spelled there, or nothing when it declares none.
std::optional<QString> pathOfEntry(const QJsonObject &entry);
/// Returns the names of the nodes down to @p path.
QStringList splitPath(const QString &path);
