// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/velkasettingstoolkitplugin.h"

#include "toolkit/settingsentry.h"

#include <qqml.h>

void VelkaSettingsToolkitPlugin::registerTypes(const char *uri)
{
    qmlRegisterType<SettingsEntry>(uri, 1, 0, "SettingsEntry");
}
