// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "text.h"

#include <QTest>

#include <functional>

using Model = ApplicationsSettingsModel;
using Act = std::function<void(Model *)>;

Q_DECLARE_METATYPE(Act)

// The calls that the applications model makes and refuses for the user 0.
class ApplicationRootTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void becomesTheUser();
    void changesTheMode_data();
    void changesTheMode();
    void readsWhetherTheModeIsEnabled_data();
    void readsWhetherTheModeIsEnabled();
    void allowlist_data();
    void allowlist();
    void autostart_data();
    void autostart();
    void grantsPermissions();
    void restrictionIsAnswered();
    void withoutMode();
    void notifications();

private:
    Applications m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_none;

void setEnabled(Model *model)
{
    model->setFilterModeEnabled(true);
}

void setDisabled(Model *model)
{
    model->setFilterModeEnabled(false);
}

Act toggle(const char *fileId)
{
    return [fileId](Model *model) { model->toggleSelectedApp(text(fileId)); };
}

Act apply(std::initializer_list<const char *> ids)
{
    return [list = texts(ids)](Model *model) { model->applyPolicyRules(list); };
}
}

void ApplicationRootTest::initTestCase()
{
    writeThreeApplications(m_applications);
}

void ApplicationRootTest::init()
{
    m_services.reset();
}

void ApplicationRootTest::becomesTheUser()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    const MessageLog log;
    model.setUid(0);
    QCOMPARE(model.takeSignals(), texts({"uidChanged"}));
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QCOMPARE(m_services.takeCalls(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationRootTest::changesTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("warnings");
    QTest::newRow("allow-list") << int(Model::AllowedOnly) << 1;
    QTest::newRow("autostart list") << int(Model::AutostartedOnly) << 1;
    QTest::newRow("none") << 7 << 0;
}

void ApplicationRootTest::changesTheMode()
{
    QFETCH(int, mode);
    QFETCH(int, warnings);
    ServedModel model(&m_services);
    model.setUid(0);
    model.takeSignals();
    const MessageLog log;
    model.setFilterMode(mode);
    QCOMPARE(m_services.takeCalls(), s_none);
    QCOMPARE(model.takeSignals(),
             texts({"filterModeChanged", "modelAboutToBeReset", "countChanged", "modelReset"}));
    QCOMPARE(log.take(), incorrectUid(warnings));
}

void ApplicationRootTest::readsWhetherTheModeIsEnabled_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<int>("warnings");
    QTest::newRow("no") << int(Model::AllowedOnly) << QByteArray("0") << false
                        << texts({"GetAllowlistEnabled(0) u"}) << 0;
    QTest::newRow("yes") << int(Model::AllowedOnly) << QByteArray("1") << true
                         << texts({"GetAllowlistEnabled(0) u", "GetAlwaysAllowedApplications()"}) << 1;
    QTest::newRow("with the marker") << int(Model::AutostartedOnly) << QByteArray("1") << false << s_none << 1;
}

void ApplicationRootTest::readsWhetherTheModeIsEnabled()
{
    QFETCH(int, mode);
    QFETCH(QByteArray, answer);
    QFETCH(int, warnings);
    m_services.answer("GetEnabled", "['a', 'enabledMode']");
    ServedModel model(&m_services, mode);
    model.setUid(0);
    m_services.answer("GetAllowlistEnabled", answer);
    const MessageLog log;
    QTEST(model.filterModeEnabled(), "enabled");
    QTEST(m_services.takeCalls(), "calls");
    QCOMPARE(log.take(), incorrectUid(warnings));
}

void ApplicationRootTest::allowlist_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<QStringList>("selection");
    QTest::addColumn<int>("warnings");
    QTest::newRow("toggle") << toggle("b.desktop") << texts({"a", "x", "b"}) << 1;
    QTest::newRow("toggle back") << toggle("a.desktop") << texts({"x"}) << 1;
    QTest::newRow("clear") << Act(&Model::clearSelectedApps) << s_none << 1;
    QTest::newRow("select all") << Act(&Model::selectAllApps) << texts({"a", "b", "c"}) << 2;
    QTest::newRow("apply") << apply({"c", "c"}) << texts({"c", "c"}) << 1;
    QTest::newRow("apply the same") << apply({"a", "x"}) << texts({"a", "x"}) << 1;
    QTest::newRow("enable") << Act(setEnabled) << texts({"a", "x"}) << 1;
    QTest::newRow("disable again") << Act(setDisabled) << texts({"a", "x"}) << 0;
}

void ApplicationRootTest::allowlist()
{
    QFETCH(Act, act);
    QFETCH(int, warnings);
    ServedModel model(&m_services, Model::AllowedOnly);
    model.setUid(0);
    model.takeSignals();
    const MessageLog log;
    act(&model);
    QCOMPARE(log.take(), incorrectUid(warnings));
    QTEST(model.selectedApps(), "selection");
    QCOMPARE(m_services.takeCalls(), s_none);
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationRootTest::autostart_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<QStringList>("calls"); // another test checks their order
    QTest::addColumn<int>("warnings");
    QTest::newRow("toggle") << toggle("b.desktop") << s_none << 1;
    QTest::newRow("toggle back") << toggle("a.desktop") << s_none << 1;
    QTest::newRow("toggle nothing") << toggle(".desktop") << s_none << 0;
    QTest::newRow("clear") << Act(&Model::clearSelectedApps)
                           << texts({"GetAppInfo('a') s", "SetEnabled(0, 'a', 0) isb",
                                     "SetEnabled(0, 'enabledMode', 0) isb"})
                           << 0;
    QTest::newRow("select all") << Act(&Model::selectAllApps)
                                << texts({"GetAppInfo('b') s", "GetAppInfo('c') s", "SetEnabled(0, 'b', 1) isb",
                                          "SetEnabled(0, 'c', 1) isb", "SetEnabled(0, 'enabledMode', 0) isb"})
                                << 0;
    QTest::newRow("apply") << apply({"a", "b", "b", "enabledMode"})
                           << texts({"GetAppInfo('b') s", "GetAppInfo('b') s", "SetEnabled(0, 'b', 1) isb",
                                     "SetEnabled(0, 'b', 1) isb"})
                           << 0;
    QTest::newRow("apply the same") << apply({"a", "enabledMode"}) << s_none << 0;
    QTest::newRow("enable again") << Act(setEnabled) << texts({"SetEnabled(0, 'enabledMode', 1) isb"}) << 1;
    QTest::newRow("disable") << Act(setDisabled) << s_none << 1;
}

void ApplicationRootTest::autostart()
{
    QFETCH(Act, act);
    QFETCH(int, warnings);
    m_services.answer("GetEnabled", "['a', 'enabledMode']");
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.setUid(0);
    const MessageLog log;
    act(&model);
    QCOMPARE(log.take(), incorrectUid(warnings));
    QStringList calls = m_services.takeCalls();
    calls.sort();
    QTEST(calls, "calls");
    QCOMPARE(log.take(), s_none);
}

void ApplicationRootTest::grantsPermissions()
{
    m_applications.write("first/asking.desktop",
                         application("Asking", "NoDisplay=true\n[X-Application]\nPermissions=A;B\n"));
    m_services.answer("GetAppInfo", "{}");
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.setUid(0);
    const MessageLog log;
    model.applyPolicyRules(texts({"a", "x", "asking"}));
    QCOMPARE(m_services.takeCalls(),
             texts({"GetAppInfo('asking') s", "SetShowPrompt(0, 'asking', 0) usi",
                    "SetGrantedPermissions(0, 'asking', ['A', 'B']) usas", "SetEnabled(0, 'asking', 1) isb"}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationRootTest::restrictionIsAnswered()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.setUid(0);
    model.takeSignals();
    const MessageLog log;
    model.setFilterModeEnabled(true);
    m_services.settle();
    QCOMPARE(model.takeSignals(), texts({"selectedAppsChanged", "autostartListChanged", "dataChanged 0-2",
                                         "filterModeEnabledChanged", "autostartEnabledChanged"}));
    QCOMPARE(model.selectedApps(), texts({"a", "x", "enabledMode"}));
    QVERIFY(!model.filterModeEnabled());
    QCOMPARE(log.take(), incorrectUid(2));
}

void ApplicationRootTest::withoutMode()
{
    ServedModel model(&m_services);
    model.setUid(0);
    const MessageLog log;
    for (const Act &act : {toggle("a.desktop"), Act(&Model::clearSelectedApps), Act(&Model::selectAllApps),
                           apply({"a"}), Act(setEnabled), Act(setDisabled)}) {
        act(&model);
    }
    QVERIFY(!model.filterModeEnabled());
    QCOMPARE(m_services.takeCalls(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationRootTest::notifications()
{
    ServedModel model(&m_services);
    model.setUid(0);
    const MessageLog log;
    model.getAllowedNotificationsConfig();
    model.setNotificationsEnabled({}, false);
    QCOMPARE(m_services.takeCalls(), texts({"getList()", "setEnabled('', 0) sb"}));
    QCOMPARE(log.take(), s_none);
}

QTEST_GUILESS_MAIN(ApplicationRootTest)
#include "tst_applicationroot.moc"
