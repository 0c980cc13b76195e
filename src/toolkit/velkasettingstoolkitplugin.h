// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QQmlExtensionPlugin>

/// Registers the types that hosts build their pages from. The import reads nothing from disk.
class VelkaSettingsToolkitPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.velka.settings.toolkit")

public:
    void registerTypes(const char *uri) override;
};
