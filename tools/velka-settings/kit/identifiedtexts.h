// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// A text of a registration file that has a translation id.
struct IdentifiedText {
    QString id;
    QString text; ///< the engineering English
    int line;
};

/// A registration file and its texts.
struct TextFile {
    QString path;
    QVector<IdentifiedText> texts;
};

/// Returns the texts of the registration file at @p path that have ids, in their order. Returns nothing, and sets
/// @p problem, when it cannot be read or is not JSON.
std::optional<QVector<IdentifiedText>> identifiedTexts(const QString &path, QString *problem);

/// Returns which id of @p files no catalog (*.ts) can have, or has two texts, if any. An id without a text gets that
/// which it has elsewhere.
QString unifyTexts(QVector<TextFile> *files);
