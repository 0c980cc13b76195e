// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QQmlExtensionPlugin>

/// Registers the model of search results. The import reads nothing from disk.
class VelkaSettingsSearchPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.velka.settings.search")

public:
    void registerTypes(const char *uri) override;
};
