// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

#include <functional>
#include <optional>

class MGConfItem;

/// A list of entry paths in a dconf key. A value of another type reads as the strings that it converts to.
class VELKASETTINGS_PRIVATE_EXPORT StoredFavorites : public QObject
{
    Q_OBJECT

public:
    using Edit = std::function<QStringList(const QStringList &)>;

    /// The key's MGConfItem is a child of @p owner.
    StoredFavorites(const QString &key, QObject *owner);
    ~StoredFavorites() override;

    QStringList read() const;
    bool contains(const QString &path) const; ///< in the list that the key holds now
    /// Returns false, with a warning, if @p edit cannot be applied: the list cannot be read, or would become too large.
    bool accepts(const Edit &edit) const;
    /// Applies @p edit to the list and writes it. changed() is emitted at once or later. Returns accepts().
    bool apply(const Edit &edit);
    /// The same for an edit whose result the rows show already: changed() is emitted only for other changes.
    bool applyShown(const Edit &edit);

Q_SIGNALS:
    void changed(); ///< the key holds another list than the last one that was announced or shown

private:
    void valueChanged();
    QStringList readAgain() const;
    std::optional<QStringList> edited(const Edit &edit) const;
    void write(const QStringList &paths);

    const QString m_key;
    const QPointer<MGConfItem> m_item;
    QStringList m_shown;
    /// There was no descriptor when the value last changed: the item of a device may have read nothing.
    bool m_wasUnreadable;
    mutable QStringList m_indexed; ///< the list that m_paths was filled from
    mutable QSet<QString> m_paths;
};
