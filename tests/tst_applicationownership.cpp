// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "text.h"
#include "world.h"

#include <launcherfoldermodel.h>
#include <mgconfitem.h>

#include <QDBusPendingCallWatcher>
#include <QFileSystemWatcher>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using Model = ApplicationsSettingsModel;
using Service = ApplicationServices::Service;

// The objects that the applications model uses are its direct children in each of its states.
class ApplicationOwnershipTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void beforeCompletion();
    void afterCompletion();
    void afterAKeyChange();
    void callsInFlight();
    void failedCalls();

private:
    void suspendAll();
    void resumeAll();

    std::unique_ptr<Applications> m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_alwaysOwned = texts({"MGConfItem", "QFileSystemWatcher", "QTimer"});
const QStringList s_proxies = texts(
    {"OrgOrvantaosTarnholdd1Interface", "ComKeloAmAutostartInterface", "ComKeloNotificationsConfigProxy"});

/// Returns the classes of the direct children except the model's helpers and the watchers of calls.
QStringList owned(const Model &model)
{
    QStringList classes;
    for (const QObject *child : model.children()) {
        const QString name = QString::fromLatin1(child->metaObject()->className());
        if (s_alwaysOwned.contains(name) || s_proxies.contains(name)) {
            classes.append(name);
        }
    }
    return classes;
}

template<typename Class>
QList<Class *> childrenOf(const Model &model)
{
    return model.findChildren<Class *>(QString(), Qt::FindDirectChildrenOnly);
}

int callWatchers(const Model &model)
{
    return childrenOf<QDBusPendingCallWatcher>(model).size();
}
}

void ApplicationOwnershipTest::initTestCase()
{
    World::reset(); // while dconf and this process use the same database
    m_applications = std::make_unique<Applications>();
    writeThreeApplications(*m_applications);
    m_applications->writeMenu("<Menu/>");
}

void ApplicationOwnershipTest::init()
{
    m_services.reset();
}

void ApplicationOwnershipTest::suspendAll()
{
    for (Service service : {Service::Sandboxing, Service::Autostart, Service::Notifications}) {
        m_services[service].suspend();
    }
}

void ApplicationOwnershipTest::resumeAll()
{
    for (Service service : {Service::Sandboxing, Service::Autostart, Service::Notifications}) {
        m_services[service].resume();
    }
    m_services.settle();
}

void ApplicationOwnershipTest::beforeCompletion()
{
    const Model model;
    QCOMPARE(owned(model), s_alwaysOwned);
    QCOMPARE(callWatchers(model), 0);
    QCOMPARE(childrenOf<MGConfItem>(model).constFirst()->key(), text("/apps/velka-settings/maskedSettings"));
    QVERIFY(
        childrenOf<QFileSystemWatcher>(model).constFirst()->files().contains(LauncherFolderModel::configFile()));
    const QTimer *timer = childrenOf<QTimer>(model).constFirst();
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->interval(), 1000);
    QVERIFY(!timer->isActive());
}

void ApplicationOwnershipTest::afterCompletion()
{
    const ServedModel model(&m_services);
    QCOMPARE(owned(model), s_alwaysOwned);
    QCOMPARE(callWatchers(model), 0);
}

void ApplicationOwnershipTest::afterAKeyChange()
{
    const ServedModel model(&m_services);
    QSignalSpy changed(childrenOf<MGConfItem>(model).constFirst(), &MGConfItem::valueChanged);
    QSignalSpy reset(&model, &Model::modelReset);
    World::setMasked({text("x")});
    QTRY_VERIFY(changed.count() > 0);
    QCOMPARE(owned(model), s_alwaysOwned);
    QTRY_COMPARE(reset.count(), 1);
    QCOMPARE(owned(model), s_alwaysOwned);
    World::setMasked({});
}

void ApplicationOwnershipTest::callsInFlight()
{
    ServedModel model(&m_services);
    suspendAll();
    model.setFilterMode(Model::AllowedOnly);
    QCOMPARE(owned(model), s_alwaysOwned + s_proxies.mid(0, 1));
    QCOMPARE(callWatchers(model), 1);
    model.toggleSelectedApp(text("a.desktop"));
    model.setFilterModeEnabled(true);
    QCOMPARE(callWatchers(model), 3);
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterModeEnabled(true);
    QCOMPARE(owned(model), s_alwaysOwned + s_proxies.mid(0, 2));
    QCOMPARE(callWatchers(model), 5);
    model.getAllowedNotificationsConfig();
    model.setNotificationsEnabled({}, true);
    QCOMPARE(owned(model), s_alwaysOwned + s_proxies);
    QCOMPARE(callWatchers(model), 7);
    QCOMPARE(model.findChildren<QDBusPendingCallWatcher *>().size(), 7);
    resumeAll();
    QTRY_COMPARE(callWatchers(model), 0);
    QCOMPARE(owned(model), s_alwaysOwned + s_proxies);
}

void ApplicationOwnershipTest::failedCalls()
{
    for (Service service : {Service::Sandboxing, Service::Autostart, Service::Notifications}) {
        m_services.stop(service);
    }
    const MessageLog log;
    ServedModel model(&m_services);
    model.setFilterMode(Model::AllowedOnly);
    model.setFilterMode(Model::AutostartedOnly);
    model.getAllowedNotificationsConfig();
    QCOMPARE(callWatchers(model), 3);
    m_services.settle();
    QTRY_COMPARE(callWatchers(model), 0);
    QCOMPARE(owned(model), s_alwaysOwned + s_proxies);
    QCOMPARE(log.take().size(), 3);
}

QTEST_GUILESS_MAIN(ApplicationOwnershipTest)
#include "tst_applicationownership.moc"
