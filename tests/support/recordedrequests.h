// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "text.h"
#include "toolkit/addressrequests.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

/// Requests, and a record of what they announce: paths, or "activate", each with the token, if any.
class RecordedRequests : public AddressRequests
{
public:
    explicit RecordedRequests(const QString &service = serviceOfTests());

    static QString serviceOfTests();

    QStringList log() const;

private:
    void add(const QString &request, const QString &token);

    QStringList m_log;
};

/// Return the reply to a call that another connection makes to the service of the tests.
QDBusMessage callApplication(const QString &method, const QVariantList &arguments);
QDBusMessage open(const QStringList &urls, const QVariantMap &platformData = {});
QDBusMessage openAction(const QVariantList &parameter, const QString &action = text("open"));

QString errorOf(const QDBusMessage &reply); ///< empty without an error
