// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/entrystate.h"

#include "registry/treeitem.h"
#include "registry/treeitem_p.h"

EntryState::EntryState(const TreeItem *item)
{
    if (item) {
        m_name = item->name();
        m_data = TreeItemPrivate::of(item)->data;
        m_childCount = item->count();
        m_exists = true;
    }
}

bool EntryState::operator==(const EntryState &other) const
{
    return m_exists == other.m_exists && m_childCount == other.m_childCount && m_data == other.m_data;
}

bool EntryState::exists() const
{
    return m_exists;
}

QString EntryState::title() const
{
    readTitles();
    return m_title;
}

QString EntryState::shortTitle() const
{
    readTitles();
    return m_shortTitle;
}

QString EntryState::icon() const
{
    return m_data.value(QStringLiteral("icon")).toString();
}

QString EntryState::controlIcon() const
{
    return m_data.value(QStringLiteral("controlIcon")).toString();
}

QString EntryState::type() const
{
    return m_exists ? TreeItem(m_name, data()).type() : QString();
}

QVariantMap EntryState::params() const
{
    return m_data.value(QStringLiteral("params")).toMap();
}

QVariantMap EntryState::data() const
{
    return m_data.toMap();
}

QString EntryState::file() const
{
    return m_data.fromFile();
}

int EntryState::childCount() const
{
    return m_childCount;
}

bool EntryState::mayHaveHadOtherTitles() const
{
    return !m_knowsTitles
           && (m_data.value(QStringLiteral("translation_id")).isValid()
               || m_data.value(QStringLiteral("translation_id_short")).isValid());
}

void EntryState::readTitles() const
{
    if (m_exists && !m_knowsTitles) {
        const TreeItem item(m_name, data()); // the rules for titles are its own
        m_title = item.title();
        m_shortTitle = item.shortTitle();
        m_knowsTitles = true;
    }
}
