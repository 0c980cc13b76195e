// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "inspection.h"

#include "plugin/apptranslator.h"

Inspection::Inspection(const NamedSources &named, const QStringList &masked, const LoadRecord::Progress &progress)
    : m_named(named)
    , m_masked(masked.cbegin(), masked.cend())
    , m_record(progress)
    , m_tree(named.sources, &m_translators, &m_record)
{
    // The QML module installs its own texts before any entry is loaded.
    const FrameworkCatalog own = installFrameworkCatalog(&m_translators, named.sources.translationsDirectory);
    m_record.catalogInstalled(QStringLiteral("settings_eng_en"), own.engineeringEnglish);
    m_record.catalogInstalled(QStringLiteral("settings"), own.localized);
    m_tree.setMasked(m_masked);
    m_tree.scan();
}

const EntrySources &Inspection::sources() const
{
    return m_named.sources;
}

const QSet<QString> &Inspection::masked() const
{
    return m_masked;
}

bool Inspection::isMasked(const QString &path) const
{
    return m_masked.contains(path);
}

TreeItem *Inspection::root() const
{
    return m_tree.root();
}

const LoadRecord &Inspection::record() const
{
    return m_record;
}
