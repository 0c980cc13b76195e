// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "propertylog.h"
#include "text.h"
#include "toolkit/settingsnavigation.h"

#include <optional>
#include <utility>

/// A navigation with the root "top" whose signals are recorded.
class WatchedNavigation : public SettingsNavigation
{
public:
    explicit WatchedNavigation(const QStringList &pages = {})
    {
        setRoot(text("top"));
        for (const QString &page : pages) {
            open(page);
        }
        m_log.emplace(this, staticMetaObject);
        connect(this, &SettingsNavigation::closed, this,
                [this](const QString &path) { m_events.append(text("closed ") + path); });
        connect(this, &SettingsNavigation::rowRequested, this,
                [this](const QString &row) { m_events.append(text("requested ") + row); });
    }

    /// The names of the properties whose change was announced since the last call, and the other signals.
    QStringList takeChanges()
    {
        return m_log->take() + std::exchange(m_events, {});
    }

    bool isAsAnnounced() const
    {
        return m_log->isRight();
    }

private:
    std::optional<PropertyLog> m_log;
    QStringList m_events;
};
