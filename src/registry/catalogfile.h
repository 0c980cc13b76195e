// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/compiledcatalog.h"

#include <QString>

#include <vector>

/// A catalog and all that it depends on, read and checked.
struct CatalogFile {
    QString path;
    CompiledCatalog catalog;
    std::vector<CatalogFile> dependencies;
};

/// The file that keeps a catalog from being used, and the reason.
struct CatalogFault {
    QString path;
    QString reason; ///< what the file does or is, such as "is damaged"; empty when there is no fault
};

/// Reads the catalog at @p path into @p file. Its dependencies are looked for in @p directory. What a fault leaves in
/// @p file is incomplete.
CatalogFault readCatalogFile(const QString &path, const QString &directory, CatalogFile *file);
