// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QQmlExtensionPlugin>

/// Registers the library's types with QML. Nothing is read from disk before the first model is created.
class VelkaSettingsPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.velka.settings")

public:
    void registerTypes(const char *uri) override;
    /// Installs the translations of the framework's own texts for as long as @p engine lives.
    void initializeEngine(QQmlEngine *engine, const char *uri) override;
};
