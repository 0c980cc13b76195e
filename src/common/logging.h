// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QLoggingCategory>

/// "org.orvantaos.settings.framework": by default only warnings and errors are enabled.
VELKASETTINGS_PRIVATE_EXPORT Q_DECLARE_LOGGING_CATEGORY(lcSettings)
