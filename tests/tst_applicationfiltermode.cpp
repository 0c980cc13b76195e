// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "models/userapplicationsfiltermodel.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QDBusPendingCallWatcher>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTest>

#include <memory>

using Model = ApplicationsSettingsModel;

// The calls of services, in their order, when the filter mode of the applications model changes.
class ApplicationFilterModeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void callsServices_data();
    void callsServices();
    void fetchesInTheReset_data();
    void fetchesInTheReset();
    void answersInTheReset();
    void handlerChangesTheModeAgain();
    void readerOfTheSwitchedAllowlist();
    void bindings_data();
    void bindings();

private:
    Applications m_applications;
    ApplicationServices m_services;
};

namespace
{
using Signal = void (Model::*)();

const QStringList s_none;
}

Q_DECLARE_METATYPE(Signal)

void ApplicationFilterModeTest::initTestCase()
{
    writeThreeApplications(m_applications);
}

void ApplicationFilterModeTest::init()
{
    m_services.reset();
}

void ApplicationFilterModeTest::callsServices_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<Signal>("readIn"); // null for no reader
    QTest::addColumn<QByteArray>("enabled"); // the reply of the daemon
    QTest::addColumn<QVariantList>("values"); // that are read
    QTest::addColumn<QStringList>("calls");
    const QStringList allowlist = texts({"GetAllowlist(1000) u"});
    const QStringList enabled = texts({"GetAllowlistEnabled(1000) u"});
    const QStringList always = texts({"GetAlwaysAllowedApplications()"});
    const QStringList autostart = texts({"GetEnabled(1000) i"});
    const auto row = [](const char *name, int mode, Signal readIn, const char *enabled, const QVariantList &values,
                        const QStringList &calls) {
        QTest::newRow(name) << mode << readIn << QByteArray(enabled) << values << calls;
    };
    row("allow-list", Model::AllowedOnly, nullptr, "1", {}, allowlist);
    row("allow-list, read at once", Model::AllowedOnly, &Model::filterModeChanged, "0", {false},
        enabled + allowlist);
    row("enabled allow-list, read at once", Model::AllowedOnly, &Model::filterModeChanged, "1", {true},
        enabled + always + allowlist + allowlist);
    row("allow-list, read when that is notified", Model::AllowedOnly, &Model::filterModeEnabledChanged, "1", {},
        allowlist);
    row("autostart list", Model::AutostartedOnly, nullptr, "1", {}, autostart);
    row("autostart list, read at once", Model::AutostartedOnly, &Model::filterModeChanged, "1", {false},
        autostart);
    row("autostart list, read when that is notified", Model::AutostartedOnly, &Model::filterModeEnabledChanged,
        "1", {true}, autostart);
    row("none", 7, &Model::filterModeChanged, "1", {false}, {});
}

void ApplicationFilterModeTest::callsServices()
{
    QFETCH(int, mode);
    QFETCH(Signal, readIn);
    QFETCH(QByteArray, enabled);
    m_services.answer("GetAllowlistEnabled", enabled);
    m_services.answer("GetEnabled", "['a', 'enabledMode']");
    const MessageLog log;
    ServedModel model(&m_services);
    QVariantList values;
    if (readIn) {
        connect(&model, readIn, &model, [&] { values.append(model.filterModeEnabled()); });
    }
    model.setFilterMode(mode);
    QCOMPARE(model.takeSignals(),
             texts({"filterModeChanged", "modelAboutToBeReset", "countChanged", "modelReset"}));
    QTEST(m_services.takeCalls(), "calls");
    QTEST(values, "values");
    QCOMPARE(log.take(), s_none);
}

void ApplicationFilterModeTest::fetchesInTheReset_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("allow-list") << int(Model::AllowedOnly);
    QTest::newRow("autostart list") << int(Model::AutostartedOnly);
}

void ApplicationFilterModeTest::fetchesInTheReset()
{
    QFETCH(int, mode);
    ServedModel model(&m_services);
    QStringList callsInFlight;
    const auto count = [&](const char *when) {
        return [&model, &callsInFlight, when] {
            const auto calls = model.findChildren<QDBusPendingCallWatcher *>(QString(),
                                                                             Qt::FindDirectChildrenOnly);
            callsInFlight.append(text("%1 %2").arg(text(when)).arg(calls.size()));
        };
    };
    connect(&model, &Model::filterModeChanged, &model, count("filterModeChanged"));
    connect(&model, &Model::modelAboutToBeReset, &model, count("modelAboutToBeReset"));
    connect(&model, &Model::countChanged, &model, count("countChanged"));
    model.setFilterMode(mode);
    QCOMPARE(callsInFlight, texts({"filterModeChanged 0", "modelAboutToBeReset 0", "countChanged 1"}));
    m_services.settle();
}

void ApplicationFilterModeTest::answersInTheReset()
{
    ServedModel model(&m_services);
    model.setApplications(nullptr);
    UserApplicationsFilterModel filter;
    filter.setSourceModel(&model);
    model.setFilterMode(Model::AllowedOnly);
    m_services.settle();
    model.takeSignals();
    m_services.answer("GetAllowlist", "['b']");
    connect(&model, &Model::countChanged, this, [this] { m_services.settle(); }); // runs an event loop
    LauncherFolderModel launcher;
    model.setApplications(&launcher);
    QCOMPARE(model.takeSignals(), texts({"modelAboutToBeReset", "countChanged", "allowlistChanged",
                                         "selectedAppsChanged", "modelReset", "applicationsChanged"}));
    QCOMPARE(filter.rowCount(), 1);
    QCOMPARE(filter.index(0, 0).data(Model::NameRole), QVariant(text("B")));
}

void ApplicationFilterModeTest::handlerChangesTheModeAgain()
{
    ServedModel model(&m_services);
    connect(&model, &Model::filterModeChanged, &model, [&] { model.setFilterMode(Model::AutostartedOnly); });
    model.setFilterMode(Model::AllowedOnly);
    QCOMPARE(m_services.takeCalls(), texts({"GetEnabled(1000) i", "GetEnabled(1000) i"}));
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
}

void ApplicationFilterModeTest::readerOfTheSwitchedAllowlist()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    m_services.answer("GetAllowlistEnabled", "1");
    connect(&model, &Model::filterModeEnabledChanged, &model, [&] { model.filterModeEnabled(); });
    model.setFilterModeEnabled(true);
    const QStringList lists = texts({"GetAlwaysAllowedApplications()", "GetAllowlist(1000) u"});
    QCOMPARE(m_services.takeCalls(),
             texts({"SetAllowlistEnabled(1000, 1) ui", "GetAllowlistEnabled(1000) u"}) + lists + lists);
}

void ApplicationFilterModeTest::bindings_data()
{
    QTest::addColumn<QString>("binding");
    QTest::addColumn<QStringList>("calls");
    // The mode does not notify filterModeEnabled.
    QTest::newRow("alone") << text("apps.filterModeEnabled") << texts({"GetAllowlist(1000) u"});
    QTest::newRow("with the mode") << text("apps.filterMode === 0 && apps.filterModeEnabled")
                                   << texts({"GetAllowlistEnabled(1000) u", "GetAllowlist(1000) u"});
}

void ApplicationFilterModeTest::bindings()
{
    QFETCH(QString, binding);
    ServedModel model(&m_services);
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(text("apps"), &model);
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\nQtObject { property bool enabled: " + binding.toUtf8() + " }", {});
    const std::unique_ptr<QObject> page(component.create());
    QVERIFY2(page, qPrintable(component.errorString()));
    QCOMPARE(m_services.takeCalls(), s_none);
    model.setFilterMode(Model::AllowedOnly);
    QTEST(m_services.takeCalls(), "calls");
    // Both read it again when it is notified.
    m_services.answer("GetAllowlistEnabled", "1");
    model.setFilterModeEnabled(true);
    QVERIFY(m_services.takeCalls().contains(text("GetAllowlistEnabled(1000) u")));
    QVERIFY(page->property("enabled").toBool());
}

QTEST_GUILESS_MAIN(ApplicationFilterModeTest)
#include "tst_applicationfiltermode.moc"
