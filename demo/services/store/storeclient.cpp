// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "storeclient.h"

QStringList StoreClient::packages() const
{
    return m_packages;
}

void StoreClient::showApp(const QString &package)
{
    m_packages.removeAll(package);
    m_packages.prepend(package);
    Q_EMIT packagesChanged();
    Q_EMIT asked();
}

#include "moc_storeclient.cpp"
