// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugin/apptranslator.h"

#include "common/logging.h"
#include "common/messages.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLocale>
#include <QSet>

AppTranslator::~AppTranslator()
{
    QCoreApplication::removeTranslator(this);
}

FrameworkCatalog installFrameworkCatalog(QObject *parent, const QString &directory)
{
    // The translator installed last takes precedence, so the locale's texts win over the engineering English ones.
    auto *engineeringEnglish = new AppTranslator(parent);
    QCoreApplication::installTranslator(engineeringEnglish);
    auto *localized = new AppTranslator(parent);
    QCoreApplication::installTranslator(localized);

    engineeringEnglish->load(QStringLiteral("settings_eng_en"), directory);
    localized->load(QLocale(), QStringLiteral("settings"), QStringLiteral("-"), directory);
    const QSet<QString> errors{engineeringEnglish->error(), localized->error()};
    for (const QString &error : errors) {
        if (!error.isEmpty()) {
            qCWarning(lcSettings) << Messages::CannotUseCatalog << qUtf8Printable(error);
        }
    }
    return {engineeringEnglish, localized};
}
