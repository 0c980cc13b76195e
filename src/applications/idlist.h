// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QSet>
#include <QStringList>

/// Application ids in their order, which are found in constant time. An id may occur more than once.
class IdList
{
public:
    IdList() = default;
    explicit IdList(const QStringList &ids);

    const QStringList &ids() const;
    bool contains(const QString &id) const;
    void append(const QString &id);
    void removeAll(const QString &id);

private:
    QStringList m_ids;
    QSet<QString> m_set;
};

/// Returns false, with a warning, when @p ids are too large for a call to a service.
bool canBeSent(const QStringList &ids);
