// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/fileentries.h"

#include "registry/registrationfile.h"

#include <QJsonObject>

FileEntries::FileEntries(const QJsonArray &entries, const QByteArray &text, const FileCatalogs &catalogs)
    : m_entries(entries)
    , m_text(text)
    , m_catalogs(catalogs)
{
}

QJsonObject FileEntries::at(int index) const
{
    if (m_entries.isEmpty()) {
        m_entries = parsed();
        m_text.clear();
    }
    return m_entries.at(index).toObject();
}

QJsonArray FileEntries::parsed() const
{
    return m_entries.isEmpty() ? parse(m_text) : m_entries;
}

QByteArray FileEntries::unparsedText() const
{
    return m_entries.isEmpty() ? m_text : QByteArray();
}

QJsonArray FileEntries::parse(const QByteArray &text)
{
    return parseRegistrationFile(text, QString())->entries;
}

const FileCatalogs &FileEntries::catalogs() const
{
    return m_catalogs;
}

void FileEntries::forget()
{
    if (!m_text.isEmpty()) {
        m_entries = {};
    }
}
