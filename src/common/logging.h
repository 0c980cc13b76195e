// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QLoggingCategory>

/// "org.orvantaos.settings.framework": by default only warnings and errors are enabled.
Q_DECLARE_LOGGING_CATEGORY(lcSettings)
