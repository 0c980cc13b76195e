// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QStringList>

/// Stores which packages it was asked to show.
class StoreClient : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList packages READ packages NOTIFY packagesChanged)

public:
    QStringList packages() const; ///< each once, the latest first

public Q_SLOTS:
    void showApp(const QString &package);

Q_SIGNALS:
    void packagesChanged();
    void asked(); ///< emitted after packagesChanged()

private:
    QStringList m_packages;
};
