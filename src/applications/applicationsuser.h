// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/// The user whose applications are listed: the effective one unless another one is set.
class ApplicationsUser
{
public:
    ApplicationsUser();

    uint uid() const;
    void setUid(uint uid);
    bool isValid() const; ///< false for 0, with a warning

private:
    uint m_uid;
};
