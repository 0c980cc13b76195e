// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>

/// The names that QML gives to the states of a settings control that could not carry out a change.
class SettingsControlError : public QObject
{
    Q_OBJECT

public:
    enum ErrorType {
        NoError = 0,
        InProgress,
        BlockedByAccessPolicy,
        BlockedByFlightMode,
        NotConnected,
        ConnectionFailed,
        ConnectionSetupRequired,
        NoSimAvailable,
        NoSimActive,
        UnknownError = 1000,
    };
    Q_ENUM(ErrorType)
};
