// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "soak/pages.h"
#include "toolkit/addressrequests.h"
#include "toolkit/entryaction.h"
#include "toolkit/platformservices.h"
#include "toolkit/settingsentry.h"

#include <QStringList>

/// A page that opens the addresses that it gets under a name of its own, and runs the actions of these entries.
class LinksPage : public Page
{
public:
    LinksPage();

    void use(SoakWorld *world) override;
    QString violation(const SoakWorld &world) const override;
    bool isUpToDate(const SoakWorld &world) const override;

private:
    void send(const QString &path);

    AddressRequests m_requests;
    SettingsEntry m_entry;
    EntryAction m_action;
    const PlatformServices m_services;
    QStringList m_sent; ///< addresses that have not arrived
    bool m_areInOrder = true;
};
