// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugin/apptranslator.h"

#include <QCoreApplication>

AppTranslator::~AppTranslator()
{
    QCoreApplication::removeTranslator(this);
}
