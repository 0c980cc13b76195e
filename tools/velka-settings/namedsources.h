// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/entrysources.h"

#include <QStringList>

#include <memory>
#include <optional>

class QTemporaryDir;

/// The sources of a tree that the command line names.
struct NamedSources {
    EntrySources sources;
    std::shared_ptr<const QTemporaryDir> links; ///< the directory of the entries, when single files were named

    /// Returns the sources for a DIR, or for any number of files and directories. Returns nothing, and sets
    /// @p problem, when one of them cannot be read or has no registration file, or when two have the same name.
    static std::optional<NamedSources> find(const QStringList &arguments, QString *problem);
};

/// Returns why the library never loads a file with @p name: "begins with a dot". Empty when it loads it.
QString whyNeverLoaded(const QString &name);
