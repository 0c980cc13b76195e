// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QProcess>

/**
 * The services that the model of the applications asks: each list that they answer with names all installed
 * applications. In a process of its own, so that what they do is not measured with what the model does.
 */
class AnsweringServices
{
public:
    /// On the buses from now on.
    explicit AnsweringServices(int applications);
    ~AnsweringServices();
    AnsweringServices(const AnsweringServices &) = delete;
    AnsweringServices &operator=(const AnsweringServices &) = delete;

    /// Whether this is that other process: it is over with run().
    static bool areMeantBy(const QStringList &arguments);
    static int run(const QStringList &arguments);

private:
    QProcess m_process;
};
