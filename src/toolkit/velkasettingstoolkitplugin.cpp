// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/velkasettingstoolkitplugin.h"

#include "toolkit/addressrequests.h"
#include "toolkit/entryaction.h"
#include "toolkit/entrypagecontent.h"
#include "toolkit/platformservices.h"
#include "toolkit/settingsentry.h"
#include "toolkit/settingsnavigation.h"
#include "toolkit/stablelistmodel.h"

#include <qqml.h>

void VelkaSettingsToolkitPlugin::registerTypes(const char *uri)
{
    qmlRegisterAnonymousType<QAbstractItemModel>(uri, 1); // the type of a property
    qmlRegisterType<AddressRequests>(uri, 1, 0, "AddressRequests");
    qmlRegisterType<EntryAction>(uri, 1, 0, "EntryAction");
    qmlRegisterUncreatableType<PlatformService>(uri, 1, 0, "PlatformService",
                                                QStringLiteral("PlatformServices has them"));
    qmlRegisterSingletonType<PlatformServices>(
        uri, 1, 0, "PlatformServices",
        [](QQmlEngine *, QJSEngine *) -> QObject * { return new PlatformServices; });
    qmlRegisterType<EntryPageContent>(uri, 1, 0, "EntryPageContent"); // for EntryPage.qml
    qmlRegisterType<SettingsEntry>(uri, 1, 0, "SettingsEntry");
    qmlRegisterType<SettingsNavigation>(uri, 1, 0, "SettingsNavigation");
    qmlRegisterType<StableListModel>(uri, 1, 0, "StableListModel");
}

#include "moc_velkasettingstoolkitplugin.cpp"
