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
    bool isFinished;
};

/// Returns the messages of @p ts that have not vanished, by id. Returns nothing, and sets @p problem, when it is
/// broken.
std::optional<QMap<QString, Message>> messagesOf(const QByteArray &ts, QString *problem);

using Translate = std::function<QString(const QString &source)>;
/// Returns @p ts in @p language with all texts that have not vanished translated by @p translate.
QByteArray translated(const QByteArray &ts, const QString &language, const Translate &translate);

/// Returns the language in the name of a catalog, such as "fi" in "sound-settings-fi.ts". It is engineering English if
/// the name has none.
QString languageOf(const QString &path);
}
