// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonArray>
#include <QSet>
#include <QString>
#include <QVariantMap>

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

/**
 * Turns entries into variant maps: like QJsonObject::toVariantMap(), but every number is a double, and keys that
 * come again share their characters.
 */
class EntryConverter
{
public:
    QVariantMap toMap(const QJsonObject &object);

private:
    QVariant toVariant(const QJsonValue &value);
    QString sharedKey(const QString &key);

    QSet<QString> m_keys;
};
