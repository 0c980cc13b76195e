// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/catalogtranslator.h"

/// A translator that removes itself from the application when it is deleted.
class AppTranslator : public CatalogTranslator
{
    Q_OBJECT

public:
    using CatalogTranslator::CatalogTranslator;
    ~AppTranslator() override;
};

struct FrameworkCatalog {
    AppTranslator *engineeringEnglish;
    AppTranslator *localized; ///< takes precedence
};

/// Installs the framework's own texts of @p directory. The translators belong to @p parent.
FrameworkCatalog installFrameworkCatalog(QObject *parent, const QString &directory);
