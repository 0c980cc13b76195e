// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"

#include <QMetaMethod>
#include <QPointer>
#include <QTest>

#include <iterator>

using Model = ApplicationsSettingsModel;

// A signal handler deletes the applications model while the model handles a reply or a reset.
class ApplicationModelDeletionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void handlerDeletesTheModel_data();
    void handlerDeletesTheModel();
    void handlerOfChangedRowsDeletesTheModel_data();
    void handlerOfChangedRowsDeletesTheModel();
    void handlerInAResetDeletesTheModel_data();
    void handlerInAResetDeletesTheModel();

private:
    Q_INVOKABLE void deleteModel();

    Applications m_applications;
    ApplicationServices m_services;
    QPointer<Model> m_model;
};

namespace
{
void (Model::*const s_signals[])() = {
    &Model::allowlistChanged,     &Model::allowlistEnabledChanged,     &Model::alwaysAllowedApplicationsChanged,
    &Model::autostartListChanged, &Model::autostartEnabledChanged,     &Model::filterModeEnabledChanged,
    &Model::selectedAppsChanged,  &Model::allowedNotificationsChanged,
};

void (*const s_requests[])(Model *) = {
    [](Model *model) { model->setFilterMode(Model::AllowedOnly); },
    [](Model *model) { model->setFilterMode(Model::AutostartedOnly); },
    [](Model *model) {
        model->setFilterMode(Model::AutostartedOnly);
        model->toggleSelectedApp(QStringLiteral("b.desktop"));
    },
    // Of the first row, which has no application id
    [](Model *model) { model->setNotificationsEnabled({}, false); },
};
}

void ApplicationModelDeletionTest::initTestCase()
{
    writeThreeApplications(m_applications);
}

void ApplicationModelDeletionTest::init()
{
    m_services.reset();
}

void ApplicationModelDeletionTest::handlerDeletesTheModel_data()
{
    QTest::addColumn<int>("signal");
    for (size_t i = 0; i < std::size(s_signals); ++i) {
        QTest::newRow(QMetaMethod::fromSignal(s_signals[i]).name().constData()) << int(i);
    }
}

void ApplicationModelDeletionTest::handlerDeletesTheModel()
{
    QFETCH(int, signal);
    QPointer<ServedModel> model(new ServedModel(&m_services));
    model->setFilterMode(Model::AllowedOnly);
    model->setFilterModeEnabled(true);
    model->setFilterMode(Model::AutostartedOnly);
    model->setFilterModeEnabled(true);
    model->getAllowedNotificationsConfig();
    connect(model, s_signals[signal], this, [&] { delete model; });
    m_services.settle();
    QVERIFY(!model);
}

void ApplicationModelDeletionTest::handlerOfChangedRowsDeletesTheModel_data()
{
    QTest::addColumn<int>("request");
    QTest::newRow("allow-list") << 0;
    QTest::newRow("autostart list") << 1;
    QTest::newRow("switched") << 2;
    QTest::newRow("notifications") << 3;
}

void ApplicationModelDeletionTest::handlerOfChangedRowsDeletesTheModel()
{
    QFETCH(int, request);
    QPointer<ServedModel> model(new ServedModel(&m_services));
    s_requests[request](model);
    connect(model, &Model::dataChanged, this, [&] { delete model; });
    m_services.settle();
    QVERIFY(!model);
}

void ApplicationModelDeletionTest::handlerInAResetDeletesTheModel_data()
{
    QTest::addColumn<QByteArray>("signal");
    for (const char *signal : {"filterModeChanged()", "modelAboutToBeReset()", "countChanged()", "modelReset()",
                               "applicationsChanged()"}) {
        QTest::newRow(signal) << QByteArray(signal);
    }
}

void ApplicationModelDeletionTest::handlerInAResetDeletesTheModel()
{
    QFETCH(QByteArray, signal);
    auto *model = new ServedModel(&m_services);
    m_model = model;
    const QMetaMethod emitted = model->metaObject()->method(
        model->metaObject()->indexOfSignal(signal.constData()));
    connect(model, emitted, this, metaObject()->method(metaObject()->indexOfMethod("deleteModel()")));
    model->setFilterMode(Model::AllowedOnly);
    if (m_model) {
        m_model->setApplications(nullptr);
    }
    QVERIFY(!m_model);
    m_services.settle();
}

void ApplicationModelDeletionTest::deleteModel()
{
    delete m_model;
}

QTEST_GUILESS_MAIN(ApplicationModelDeletionTest)
#include "tst_applicationmodeldeletion.moc"
