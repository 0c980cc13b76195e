// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugin/velkasettingsplugin.h"

#include "applications/applicationssettingsmodel.h"
#include "common/constants.h"
#include "models/favoritesmodel.h"
#include "models/settingscontrolerror.h"
#include "models/settingsmodel.h"
#include "models/userapplicationsfiltermodel.h"
#include "plugin/apptranslator.h"

#include <QQmlEngine>
#include <qqml.h>

namespace
{
/// The model that the pages of @p engine share.
QObject *makeApplicationsModel(QQmlEngine *engine, QJSEngine *)
{
    auto *model = new ApplicationsSettingsModel(engine);
    model->componentComplete(); // no document declares it
    return model;
}
}

void VelkaSettingsPlugin::registerTypes(const char *uri)
{
    qmlRegisterType<SettingsModel>(uri, 1, 0, "SettingsModel");
    qmlRegisterType<FavoritesModel>(uri, 1, 0, "FavoritesModel");
    qmlRegisterType<ApplicationsSettingsModel>(uri, 1, 0, "ApplicationSettingsModel");
    qmlRegisterType<UserApplicationsFilterModel>(uri, 1, 0, "UserApplicationsFilterModel");
    qmlRegisterSingletonType<ApplicationsSettingsModel>(uri, 1, 0, "ApplicationsModel", makeApplicationsModel);
    qmlRegisterUncreatableType<SettingsControlError>(uri, 1, 0, "SettingsControlError", QString());
}

void VelkaSettingsPlugin::initializeEngine(QQmlEngine *engine, const char *uri)
{
    Q_UNUSED(uri)
    installFrameworkCatalog(engine, Constants::TranslationsDirectory);
}

#include "moc_velkasettingsplugin.cpp"
