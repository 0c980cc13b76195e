// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "text.h"
#include "toolkit/settingsentry.h"

/// Returns names that are written with spaces between them.
inline QStringList names(const char *spaced)
{
    return text(spaced).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// An entry with the values that its signals have announced.
class WatchedEntry : public SettingsEntry
{
    Q_OBJECT

public:
    explicit WatchedEntry(const char *path = "");

    /// Returns the names of the properties whose change was announced since the last call, sorted.
    QStringList takeChanges();

    /// Returns true if each property has the value that was announced last, and none was announced without a change.
    bool isAsAnnounced() const;

private Q_SLOTS:
    void record();

private:
    QVariantMap m_values;
    QStringList m_changes;
    bool m_announcesOnlyChanges = true;
};
