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

/// Returns the texts of the registration file at @p path that have ids, in their order. Returns nothing, and sets
/// @p problem, when it cannot be read or is not JSON.
std::optional<QVector<IdentifiedText>> identifiedTexts(const QString &path, QString *problem);
