// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusContext>
#include <QList>
#include <QObject>
#include <QVariantMap>

class EntryFinder;
class SettingsApplication;

/// The entries for GNOME Shell. The identifiers are their locations.
class ShellProvider : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    ShellProvider(EntryFinder *finder, SettingsApplication *application, QObject *parent = nullptr);

public Q_SLOTS:
    // The methods of org.gnome.Shell.SearchProvider2
    QStringList GetInitialResultSet(const QStringList &terms);
    QStringList GetSubsearchResultSet(const QStringList &previousResults, const QStringList &terms);
    QList<QVariantMap> GetResultMetas(const QStringList &identifiers);
    void ActivateResult(const QString &identifier, const QStringList &terms, uint timestamp);
    void LaunchSearch(const QStringList &terms, uint timestamp);

private:
    EntryFinder *const m_finder;
    SettingsApplication *const m_application;
};
