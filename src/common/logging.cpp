// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/logging.h"

Q_LOGGING_CATEGORY(lcSettings, "org.orvantaos.settings.framework", QtWarningMsg)
