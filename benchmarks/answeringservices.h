// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QProcess>

/**
 * The services that the model of the applications calls. Each list that they return has all installed applications.
 * They run in another process, so that only the model is measured.
 */
class AnsweringServices
{
public:
    /// Starts the process, and returns when the services are on the buses.
    explicit AnsweringServices(int applications);
    ~AnsweringServices();
    AnsweringServices(const AnsweringServices &) = delete;
    AnsweringServices &operator=(const AnsweringServices &) = delete;

    /// Returns true in the process of the services, which is to call run().
    static bool areRunWith(const QStringList &arguments);
    static int run(const QStringList &arguments);

private:
    QProcess m_process;
};
