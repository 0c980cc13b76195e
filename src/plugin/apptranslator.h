// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QTranslator>

/// A translator that leaves the application when its owner deletes it.
class AppTranslator : public QTranslator
{
    // Without Q_OBJECT: it adds nothing to the meta-object.
public:
    using QTranslator::QTranslator;
    ~AppTranslator() override;
};
