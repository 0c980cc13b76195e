// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QMap>
#include <QString>

#include <functional>
#include <optional>

/// The messages of a catalog of translations (*.ts).
namespace TsFile
{
struct Message {
    QString source;
    bool isFinished = false;
    bool isPlural = false;
};
using Messages = QMap<QString, Message>;

/// Returns the messages of @p ts that have ids and have not vanished, by id. Returns nothing, and sets @p problem, when
/// it is broken.
std::optional<Messages> messagesOf(const QByteArray &ts, QString *problem);

/// Returns which translation of @p old is not in @p current, if any, or what is wrong with these catalogs.
QString lostTranslation(const QByteArray &old, const QByteArray &current);

/// Returns whether @p ts is in UTF-8.
bool isUtf8(const QByteArray &ts);

using Translate = std::function<QString(const QString &source)>;
/// Returns @p ts in @p language with all texts that have not vanished translated by @p translate. Returns nothing, and
/// sets @p problem, when it is broken.
std::optional<QByteArray> translated(const QByteArray &ts, const QString &language, const Translate &translate,
                                     QString *problem);

/// Returns the language in the name of a catalog, such as "sr_Latn" in "sound-settings-sr-Latn.ts", or nothing.
QString languageOf(const QString &path);
}
