// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "text.h"

#include <QTest>

using Fault = ApplicationServices::Fault;
using Model = ApplicationsSettingsModel;

// The autostart list, and the calls that change it.
class ApplicationAutostartTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void fetchesAutostartList();
    void markerInTheAutostartList_data();
    void markerInTheAutostartList();
    void sameAutostartListIsNotAnnounced();
    void failedAutostartListIsSilent_data();
    void failedAutostartListIsSilent();
    void failedAutostartListEmptiesTheSelection();
    void switchesOn();
    void switchesOff();
    void failureChangesNothing_data();
    void failureChangesNothing();
    void emptyIdIsNotSent();
    void markerNeedsNoPermissions();
    void restricts();
    void liftsTheRestriction();
    void sameRestrictionIsNotSent();
    void clears();
    void selectsAll();
    void applies();
    void appliesEachCopy();
    void appliesToEachCopy();

private:
    Applications m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_none;

/// Returns the signals that announce the changed state of one application among three rows.
QStringList switchAnnouncement()
{
    return texts({"selectedAppsChanged", "autostartListChanged", "dataChanged 0-2"});
}
}

void ApplicationAutostartTest::initTestCase()
{
    writeThreeApplications(m_applications);
}

void ApplicationAutostartTest::init()
{
    m_services.reset();
}

void ApplicationAutostartTest::fetchesAutostartList()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.setFilterMode(Model::AutostartedOnly);
    QCOMPARE(model.takeSignals(),
             texts({"filterModeChanged", "modelAboutToBeReset", "countChanged", "modelReset"}));
    QCOMPARE(m_services.takeCalls(), texts({"GetEnabled(1000) i"}));
    QCOMPARE(model.takeSignals(), texts({"autostartListChanged", "selectedAppsChanged", "dataChanged 0-2"}));
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QCOMPARE(model.column(Model::AutostartedRole), QVariantList({true, false, false}));
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({false, false, false}));
    QVERIFY(!model.filterModeEnabled());
    QCOMPARE(log.take(), s_none);
}

void ApplicationAutostartTest::markerInTheAutostartList_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("changes");
    QTest::newRow("comes") << QByteArray("['a']") << QByteArray("['a', 'enabledMode']") << true << true;
    QTest::newRow("goes") << QByteArray("['enabledMode', 'a']") << QByteArray("['a']") << false << true;
    QTest::newRow("stays") << QByteArray("['enabledMode', 'a']") << QByteArray("['enabledMode']") << true << false;
    QTest::newRow("is in another case") << QByteArray("['a']") << QByteArray("['EnabledMode']") << false << false;
}

void ApplicationAutostartTest::markerInTheAutostartList()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(bool, enabled);
    QFETCH(bool, changes);
    ServedModel model(&m_services);
    m_services.answerInTurn("GetEnabled", {first, second});
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterMode(NoMode);
    model.setFilterMode(Model::AutostartedOnly); // both replies arrive for the current list
    model.takeSignals();
    m_services.settle();
    const QStringList announced = model.takeSignals();
    const QStringList marker = texts({"filterModeEnabledChanged", "autostartEnabledChanged"});
    const auto announcement = [&](bool withMarker) {
        return texts({"autostartListChanged", "selectedAppsChanged"}) + (withMarker ? marker : s_none)
               + texts({"dataChanged 0-2"});
    };
    QCOMPARE(announced, announcement(first.contains("enabledMode")) + announcement(changes));
    QCOMPARE(model.filterModeEnabled(), enabled);
}

void ApplicationAutostartTest::sameAutostartListIsNotAnnounced()
{
    ServedModel model(&m_services);
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterMode(NoMode);
    model.setFilterMode(Model::AutostartedOnly);
    model.takeSignals();
    QCOMPARE(m_services.takeCalls(), texts({"GetEnabled(1000) i", "GetEnabled(1000) i"}));
    QCOMPARE(model.takeSignals(), texts({"autostartListChanged", "selectedAppsChanged", "dataChanged 0-2"}));
}

void ApplicationAutostartTest::failedAutostartListIsSilent_data()
{
    faults("GetEnabled");
}

void ApplicationAutostartTest::failedAutostartListIsSilent()
{
    QFETCH(Fault, fault);
    QFETCH(QDBusError, error);
    const MessageLog log;
    ServedModel model(&m_services);
    m_services.spoil("GetEnabled", fault);
    model.setFilterMode(Model::AutostartedOnly);
    model.takeSignals();
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(log.take(), QStringList(warning(text("Failed to get autostart list for uid 1000. Error: ")
                                             + unquotedText(error))));
}

void ApplicationAutostartTest::failedAutostartListEmptiesTheSelection()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    m_services.spoil("GetEnabled", Fault::Refuses);
    const MessageLog log;
    model.toggleSelectedApp(text("b.desktop")); // the reply arrives after the rebuild
    model.setFilterMode(NoMode);
    model.setFilterMode(Model::AutostartedOnly);
    model.takeSignals();
    m_services.settle();
    QCOMPARE(model.takeSignals(), texts({"selectedAppsChanged", "autostartListChanged", "dataChanged 0-2"}));
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(model.column(Model::AutostartedRole), QVariantList({false, false, false}));
    QCOMPARE(log.take().size(), 1);
}

void ApplicationAutostartTest::switchesOn()
{
    const MessageLog log;
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.toggleSelectedApp(text("b.desktop"));
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QCOMPARE(m_services.takeCalls(), texts({"GetAppInfo('b') s", "SetEnabled(1000, 'b', 1) isb"}));
    QCOMPARE(model.takeSignals(), switchAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"a", "x", "b"}));
    QCOMPARE(model.column(Model::AutostartedRole), QVariantList({true, true, false}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationAutostartTest::switchesOff()
{
    m_services.answer("GetEnabled", "['a', 'b', 'a']");
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.toggleSelectedApp(text("a.desktop"));
    QCOMPARE(m_services.takeCalls(), texts({"GetAppInfo('a') s", "SetEnabled(1000, 'a', 0) isb"}));
    QCOMPARE(model.takeSignals(), switchAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"b"}));
    QCOMPARE(model.column(Model::AutostartedRole), QVariantList({false, true, false}));
}

void ApplicationAutostartTest::failureChangesNothing_data()
{
    faults("SetEnabled");
}

void ApplicationAutostartTest::failureChangesNothing()
{
    QFETCH(Fault, fault);
    const MessageLog log;
    ServedModel model(&m_services, Model::AutostartedOnly);
    m_services.spoil("SetEnabled", fault);
    model.toggleSelectedApp(text("b.desktop"));
    model.setFilterModeEnabled(true);
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QVERIFY(!model.filterModeEnabled());
    QCOMPARE(log.take(), s_none);
}

void ApplicationAutostartTest::emptyIdIsNotSent()
{
    const MessageLog log;
    ServedModel model(&m_services, Model::AutostartedOnly);
    for (const char *fileId : {"", ".desktop", ".desktop.desktop"}) {
        model.toggleSelectedApp(text(fileId));
    }
    QCOMPARE(m_services.takeCalls(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationAutostartTest::markerNeedsNoPermissions()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.toggleSelectedApp(text("enabledMode.desktop"));
    QCOMPARE(m_services.takeCalls(), texts({"SetEnabled(1000, 'enabledMode', 1) isb"}));
    model.toggleSelectedApp(text("enabledMode.desktop"));
    QCOMPARE(m_services.takeCalls(), texts({"SetEnabled(1000, 'enabledMode', 0) isb"}));
    model.applyPolicyRules(texts({"a", "x", "enabledMode"}));
    QCOMPARE(m_services.takeCalls(), texts({"SetEnabled(1000, 'enabledMode', 1) isb"}));
}

void ApplicationAutostartTest::appliesToEachCopy()
{
    m_services.answer("GetEnabled", "['a', 'x', 'a']");
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.applyPolicyRules(texts({"x", "x"}));
    QCOMPARE(m_services.takeCalls().filter(text("SetEnabled")),
             texts({"SetEnabled(1000, 'a', 0) isb", "SetEnabled(1000, 'a', 0) isb"}));
    QCOMPARE(model.selectedApps(), texts({"x"}));
}

void ApplicationAutostartTest::restricts()
{
    const MessageLog log;
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.setFilterModeEnabled(true);
    QVERIFY(!model.filterModeEnabled());
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(m_services.takeCalls(), texts({"SetEnabled(1000, 'enabledMode', 1) isb"}));
    QCOMPARE(model.takeSignals(),
             switchAnnouncement() + texts({"filterModeEnabledChanged", "autostartEnabledChanged"}));
    QVERIFY(model.filterModeEnabled());
    QCOMPARE(model.selectedApps(), texts({"a", "x", "enabledMode"}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationAutostartTest::liftsTheRestriction()
{
    m_services.answer("GetEnabled", "['a', 'enabledMode', 'x']");
    ServedModel model(&m_services, Model::AutostartedOnly);
    QVERIFY(model.filterModeEnabled());
    model.setFilterModeEnabled(false);
    const QStringList calls = m_services.takeCalls();
    QCOMPARE(calls.filter(text("SetEnabled")),
             texts({"SetEnabled(1000, 'a', 0) isb", "SetEnabled(1000, 'enabledMode', 0) isb",
                    "SetEnabled(1000, 'x', 0) isb"}));
    QCOMPARE(calls.filter(text("GetAppInfo")), texts({"GetAppInfo('a') s", "GetAppInfo('x') s"}));
    QCOMPARE(calls.size(), 5);
    QCOMPARE(model.takeSignals(), switchAnnouncement() + switchAnnouncement()
                                      + texts({"filterModeEnabledChanged", "autostartEnabledChanged"})
                                      + switchAnnouncement());
    QVERIFY(!model.filterModeEnabled());
    QCOMPARE(model.selectedApps(), s_none);
}

void ApplicationAutostartTest::sameRestrictionIsNotSent()
{
    const MessageLog log;
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.setFilterModeEnabled(false);
    QCOMPARE(m_services.takeCalls(), s_none);
    model.setFilterModeEnabled(true);
    m_services.takeCalls();
    model.setFilterModeEnabled(true);
    QCOMPARE(m_services.takeCalls(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationAutostartTest::clears()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.clearSelectedApps();
    const QStringList calls = m_services.takeCalls();
    QCOMPARE(calls.filter(text("SetEnabled")),
             texts({"SetEnabled(1000, 'a', 0) isb", "SetEnabled(1000, 'x', 0) isb"}));
    QCOMPARE(calls.filter(text("GetAppInfo")), texts({"GetAppInfo('a') s", "GetAppInfo('x') s"}));
    QCOMPARE(calls.size(), 4);
    QCOMPARE(model.selectedApps(), s_none);
}

void ApplicationAutostartTest::selectsAll()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.selectAllApps();
    const QStringList calls = m_services.takeCalls();
    QCOMPARE(
        calls.filter(text("SetEnabled")),
        texts({"SetEnabled(1000, 'x', 0) isb", "SetEnabled(1000, 'b', 1) isb", "SetEnabled(1000, 'c', 1) isb"}));
    QCOMPARE(calls.filter(text("GetAppInfo")),
             texts({"GetAppInfo('x') s", "GetAppInfo('b') s", "GetAppInfo('c') s"}));
    QCOMPARE(calls.size(), 6);
    QCOMPARE(model.takeSignals(), switchAnnouncement() + switchAnnouncement() + switchAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"a", "b", "c"}));
}

void ApplicationAutostartTest::applies()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.applyPolicyRules(texts({"a", "x"}));
    QCOMPARE(m_services.takeCalls(), s_none);
    QCOMPARE(model.takeSignals(), s_none);
    model.applyPolicyRules(texts({"y", "x"}));
    QCOMPARE(m_services.takeCalls().filter(text("SetEnabled")),
             texts({"SetEnabled(1000, 'a', 0) isb", "SetEnabled(1000, 'y', 1) isb"}));
    QCOMPARE(model.selectedApps(), texts({"x", "y"}));
}

void ApplicationAutostartTest::appliesEachCopy()
{
    ServedModel model(&m_services, Model::AutostartedOnly);
    model.applyPolicyRules(texts({"a", "x", "b", "b"}));
    QCOMPARE(m_services.takeCalls().filter(text("SetEnabled")),
             texts({"SetEnabled(1000, 'b', 1) isb", "SetEnabled(1000, 'b', 1) isb"}));
    QCOMPARE(model.selectedApps(), texts({"a", "x", "b", "b"}));
    model.toggleSelectedApp(text("b.desktop"));
    m_services.settle();
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
}

QTEST_GUILESS_MAIN(ApplicationAutostartTest)
#include "tst_applicationautostart.moc"
