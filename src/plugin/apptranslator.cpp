// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugin/apptranslator.h"

#include "common/logging.h"
#include "common/messages.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLocale>
#include <QSet>

namespace
{
AppTranslator *installTranslator(QObject *parent)
{
    auto *translator = new AppTranslator(parent);
    QCoreApplication::installTranslator(translator);
    return translator;
}

void logErrors(const QSet<QString> &errors)
{
    for (const QString &error : errors) {
        if (!error.isEmpty()) {
            qCWarning(lcSettings) << Messages::CannotUseCatalog << qUtf8Printable(error);
        }
    }
}
}

AppTranslator::~AppTranslator()
{
    QCoreApplication::removeTranslator(this);
}

FrameworkCatalog installFrameworkCatalog(QObject *parent, const QString &directory)
{
    // The translator installed last takes precedence, so the locale's texts win over the engineering English ones.
    AppTranslator *engineeringEnglish = installTranslator(parent);
    AppTranslator *localized = installTranslator(parent);
    engineeringEnglish->load(QStringLiteral("settings_eng_en"), directory);
    localized->load(QLocale(), QStringLiteral("settings"), QStringLiteral("-"), directory);
    logErrors({engineeringEnglish->error(), localized->error()});
    return {engineeringEnglish, localized};
}

#include "moc_apptranslator.cpp"
