// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "answeringservices.h"

#include "common/constants.h"
#include "installedapplications.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <cstdio>

namespace
{
const QString s_option = QStringLiteral("--services");

class Answers : public QDBusVirtualObject
{
public:
    explicit Answers(int applications)
    {
        for (int index = 0; index < applications; ++index) {
            m_ids.append(InstalledApplications::id(index));
            m_notifications.insert(InstalledApplications::serviceName(index), index % 2 == 0);
        }
    }

    QString introspect(const QString &path) const override
    {
        Q_UNUSED(path)
        return {};
    }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const bool isNotifications = message.member() == QLatin1String("getList");
        return connection.send(message.createReply(isNotifications ? QVariant(m_notifications) : m_ids));
    }

private:
    QStringList m_ids;
    QVariantMap m_notifications;
};

void serve(QDBusConnection bus, const QString &service, const QString &path, Answers *answers)
{
    if (!bus.registerVirtualObject(path, answers) || !bus.registerService(service)) {
        qFatal("%s does not come to the bus", qPrintable(service));
    }
}
}

AnsweringServices::AnsweringServices(int applications)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationFilePath(), {s_option, QString::number(applications)});
    if (!m_process.waitForReadyRead()) {
        qFatal("The services do not start");
    }
}

AnsweringServices::~AnsweringServices()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool AnsweringServices::areRunWith(const QStringList &arguments)
{
    return arguments.contains(s_option);
}

int AnsweringServices::run(const QStringList &arguments)
{
    Answers answers(arguments.last().toInt());
    serve(QDBusConnection::systemBus(), Constants::SandboxingService, Constants::SandboxingPath, &answers);
    serve(QDBusConnection::systemBus(), Constants::AutostartService, Constants::AutostartPath, &answers);
    serve(QDBusConnection::sessionBus(), Constants::NotificationsService, Constants::NotificationsPath, &answers);
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
