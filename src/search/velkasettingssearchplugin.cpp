// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/velkasettingssearchplugin.h"

#include "search/searchmodel.h"

#include <qqml.h>

void VelkaSettingsSearchPlugin::registerTypes(const char *uri)
{
    qmlRegisterType<SearchModel>(uri, 1, 0, "SearchModel");
}

#include "moc_velkasettingssearchplugin.cpp"
