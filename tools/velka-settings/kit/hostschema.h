// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "hostvocabulary.h"

/// Returns @p schema, that of registration files, restricted to what the host with @p vocabulary shows.
QJsonObject hostSchema(QJsonObject schema, const HostVocabulary &vocabulary);
