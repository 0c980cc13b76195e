// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/velkasettingstoolkitplugin.h"

#include <qqml.h>

void VelkaSettingsToolkitPlugin::registerTypes(const char *uri)
{
    qmlRegisterModule(uri, 1, 0);
}
