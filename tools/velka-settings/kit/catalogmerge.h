// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "identifiedtexts.h"

#include <QByteArray>

/// A catalog of translations (*.ts).
struct NamedCatalog {
    QString path;
    QByteArray content; ///< empty when it is new
    QString language; ///< of a new one
};

/// Returns the content of @p catalog with the texts of @p files. Returns nothing, and sets @p problem, when a text or
/// an earlier translation would be lost. Qt's lupdate merges them. It reads no JSON: it gets C++ that has the same ids
/// in the same lines of files of the same names.
std::optional<QByteArray> mergeTexts(const QVector<TextFile> &files, const NamedCatalog &catalog,
                                     QString *problem);
