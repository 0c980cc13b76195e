// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationsuser.h"

#include "common/logging.h"
#include "common/messages.h"

#include <unistd.h>

ApplicationsUser::ApplicationsUser()
    : m_uid(geteuid())
{
}

uint ApplicationsUser::uid() const
{
    return m_uid;
}

void ApplicationsUser::setUid(uint uid)
{
    m_uid = uid;
}

bool ApplicationsUser::isValid() const
{
    if (m_uid == 0) {
        qCWarning(lcSettings) << Messages::IncorrectUid << m_uid;
    }
    return m_uid != 0;
}
