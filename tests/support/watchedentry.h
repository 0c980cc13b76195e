// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "propertylog.h"
#include "text.h"
#include "toolkit/settingsentry.h"

#include <optional>

/// An entry with the values that its signals have announced.
class WatchedEntry : public SettingsEntry
{
public:
    explicit WatchedEntry(const char *path = "")
    {
        setPath(text(path));
        m_log.emplace(this, staticMetaObject);
    }

    /// Returns the names of the properties whose change was announced since the last call, sorted.
    QStringList takeChanges()
    {
        QStringList changes = m_log->take();
        changes.sort();
        return changes;
    }

    /// Returns true if each property has the value that was announced last, and none was announced without a change.
    bool isAsAnnounced() const
    {
        return m_log->isRight();
    }

private:
    std::optional<PropertyLog> m_log;
};
