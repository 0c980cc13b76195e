// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "shellprovider.h"

#include "bustexts.h"
#include "delayedreply.h"
#include "entryfinder.h"
#include "settingsapplication.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>

/// An icon of the theme, as g_icon_serialize() writes it.
struct SerializedIcon {
    QString name;
};
Q_DECLARE_METATYPE(SerializedIcon)

// The bus passes on icons only in one direction, but Qt asks for both operators.
QDBusArgument &operator<<(QDBusArgument &argument, const SerializedIcon &icon)
{
    argument.beginStructure();
    argument << QStringLiteral("themed") << QDBusVariant(QStringList(icon.name));
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, SerializedIcon &icon)
{
    QString kind;
    QDBusVariant names;
    argument.beginStructure();
    argument >> kind >> names;
    argument.endStructure();
    icon.name = names.variant().toStringList().value(0);
    return argument;
}

namespace
{
QVariantMap metaOf(const SearchResult &result)
{
    QVariantMap meta{
        {QStringLiteral("id"), result.location},
        {QStringLiteral("name"), BusTexts::shortened(result.title)},
        {QStringLiteral("description"), BusTexts::shortened(result.breadcrumb.join(QStringLiteral(" › ")))},
    };
    const QString icon = BusTexts::themeIconOf(*result.item);
    if (!icon.isEmpty()) {
        meta.insert(QStringLiteral("icon"), QVariant::fromValue(SerializedIcon{icon}));
    }
    return meta;
}

QVariant locationsOf(const QVector<SearchResult> &results)
{
    QStringList locations;
    for (const SearchResult &result : results) {
        locations.append(result.location);
    }
    return locations;
}

QVariant metasOf(const QVector<SearchResult> &results)
{
    QList<QVariantMap> metas;
    for (const SearchResult &result : results) {
        metas.append(metaOf(result));
    }
    return QVariant::fromValue(metas);
}
}

ShellProvider::ShellProvider(EntryFinder *finder, SettingsApplication *application, QObject *parent)
    : QObject(parent)
    , m_finder(finder)
    , m_application(application)
{
    qDBusRegisterMetaType<QList<QVariantMap>>();
    qDBusRegisterMetaType<SerializedIcon>();
}

QStringList ShellProvider::GetInitialResultSet(const QStringList &terms)
{
    m_finder->find(terms, delayedReply(*this, locationsOf));
    return {};
}

QStringList ShellProvider::GetSubsearchResultSet(const QStringList &previousResults, const QStringList &terms)
{
    m_finder->findWithin(previousResults, terms, delayedReply(*this, locationsOf));
    return {};
}

QList<QVariantMap> ShellProvider::GetResultMetas(const QStringList &identifiers)
{
    m_finder->look(identifiers, delayedReply(*this, metasOf));
    return {};
}

void ShellProvider::ActivateResult(const QString &identifier, const QStringList & /*terms*/, uint timestamp)
{
    m_application->open(identifier, timestamp);
}

void ShellProvider::LaunchSearch(const QStringList & /*terms*/, uint timestamp)
{
    m_application->activate(timestamp);
}

#include "moc_shellprovider.cpp"
