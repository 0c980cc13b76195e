// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "inspection.h"

#include "plugin/apptranslator.h"

Inspection::Inspection(const EntrySources &sources, const QStringList &masked,
                       const LoadRecord::Progress &progress)
    : m_sources(sources)
    , m_masked(masked.cbegin(), masked.cend())
    , m_record(progress)
    , m_tree(sources, &m_translators, &m_record)
{
    // The QML module installs its own texts before any entry is loaded.
    const FrameworkCatalog own = installFrameworkCatalog(&m_translators, sources.translationsDirectory);
    m_record.catalogInstalled(QStringLiteral("settings_eng_en"), own.engineeringEnglish);
    m_record.catalogInstalled(QStringLiteral("settings"), own.localized);
    m_tree.setMasked(m_masked);
    m_tree.scan();
}

const EntrySources &Inspection::sources() const
{
    return m_sources;
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
