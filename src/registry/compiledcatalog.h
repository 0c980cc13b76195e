// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <optional>

/// A compiled catalog (.qm) whose structure is sound: QTranslator reads its image without leaving it.
struct CompiledCatalog {
    /// Returns whether QTranslator searches the dependencies for the texts of @p context that this catalog lacks.
    bool leavesToDependencies(const char *context) const;
    /// Returns the source text or the id of each message, null if the catalog was compiled without them.
    QList<QByteArray> sourceTexts() const;

    QByteArray image; ///< for QTranslator::load(), without the dependencies
    QByteArray contexts; ///< a hash table of the contexts, empty in most catalogs
    QStringList dependencies; ///< names of other catalogs
    bool hasMessages = false;
};

/// Returns the catalog in @p file, or nothing when any part of it is damaged. Takes time linear in its size.
std::optional<CompiledCatalog> parseCompiledCatalog(const QByteArray &file);
