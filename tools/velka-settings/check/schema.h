// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <json/value.h>

namespace Check
{
/// The schema of registration files, as it is installed.
const Json::Value &registrationSchema();
}
