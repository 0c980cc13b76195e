// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <mgconfitem.h>

#include <QObject>
#include <QSet>
#include <QStringList>

#include <optional>

/// A list of entry paths in a dconf key. A value of another type reads as the strings that it converts to.
class StoredFavorites : public QObject
{
    Q_OBJECT

public:
    explicit StoredFavorites(const QString &key);

    QStringList read() const;
    /// As of the last changed(), without reading the list anew.
    bool contains(const QString &path) const;
    /// Announced by changed(), at once or later.
    void write(const QStringList &paths);

Q_SIGNALS:
    void changed(); ///< by whomever

private:
    void valueChanged();

    MGConfItem m_item;
    mutable std::optional<QSet<QString>> m_paths; ///< filled on demand
};
