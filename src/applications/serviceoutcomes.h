// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QDBusError>
#include <QObject>

#include <array>
#include <optional>

enum class PlatformServiceName { Sandboxing, Autostart, Notifications };

/// How the last call of this process to each of the platform's services ended. It makes no calls.
class VELKASETTINGS_PRIVATE_EXPORT ServiceOutcomes : public QObject
{
    Q_OBJECT

public:
    static ServiceOutcomes *instance();

    /// Returns the error, an invalid one if the call succeeded. Nothing before the first reply.
    std::optional<QDBusError> last(PlatformServiceName service) const;
    void record(PlatformServiceName service, const QDBusError &error);

Q_SIGNALS:
    /// Emitted from the event loop, because calls end in readers of properties.
    void changed();

private:
    ServiceOutcomes() = default;

    std::array<std::optional<QDBusError>, 3> m_last;
};
