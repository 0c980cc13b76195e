// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/applicationlist.h"

/// A user's list of applications that a page edits, and the restriction of the user to what it holds.
class Selection : public ApplicationList
{
    Q_OBJECT

public:
    using ApplicationList::ApplicationList;

    virtual void fetch() = 0;
    virtual bool isEnabled() = 0; ///< true if the user is restricted. May call the service and wait for it.
    virtual void setEnabled(bool enabled) = 0;
    virtual void toggle(const QString &id) = 0;
    virtual void apply(const QStringList &ids) = 0; ///< makes these ids the list
    virtual void selectAll(const QStringList &ids) = 0; ///< the same, for the ids of all applications

Q_SIGNALS:
    void enabledChanged();
};
