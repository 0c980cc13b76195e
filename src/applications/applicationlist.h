// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/idlist.h"

#include <QObject>
#include <QPointer>

#include <initializer_list>
#include <optional>

/// The application ids that a service sent last. Empty before that, and after a failure.
class ApplicationList : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    const QStringList &ids() const;
    bool contains(const QString &id) const;
    void forget(); ///< empties the list, without a signal

Q_SIGNALS:
    void listChanged();
    void selectionChanged(); ///< with listChanged()
    void membersChanged(); ///< any application may have been added to the list or removed from it

protected:
    /// Stores what a fetch has returned, nothing for a failure. Returns whether that is a list, and another one.
    bool store(const std::optional<QStringList> &ids);
    void announce(); ///< that the list has changed

    /// Emits the signals of @p list one after the other, until a handler deletes it.
    template<typename List>
    static void emitAll(List *list, std::initializer_list<void (List::*)()> changes)
    {
        const QPointer<List> alive(list);
        for (const auto change : changes) {
            if (alive) {
                Q_EMIT(list->*change)();
            }
        }
    }

    IdList m_list;
};
