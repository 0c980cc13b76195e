// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/velkasettingstoolkitplugin.h"

#include "toolkit/entrypage.h"
#include "toolkit/settingsentry.h"
#include "toolkit/settingsnavigation.h"
#include "toolkit/stablelistmodel.h"

#include <qqml.h>

void VelkaSettingsToolkitPlugin::registerTypes(const char *uri)
{
    qmlRegisterAnonymousType<QAbstractItemModel>(uri, 1); // the type of a property
    qmlRegisterType<EntryPage>(uri, 1, 0, "EntryPage");
    qmlRegisterType<SettingsEntry>(uri, 1, 0, "SettingsEntry");
    qmlRegisterType<SettingsNavigation>(uri, 1, 0, "SettingsNavigation");
    qmlRegisterType<StableListModel>(uri, 1, 0, "StableListModel");
}
