// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "models/userapplicationsfiltermodel.h"
#include "text.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using Fault = ApplicationServices::Fault;
using Model = ApplicationsSettingsModel;

// The allow-lists of the sandboxing daemon.
class ApplicationAllowlistTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void fetchesAllowlist();
    void filterFollowsTheModel();
    void sameAllowlistIsNotAnnounced();
    void allowlistOfNoRows();
    void failedAllowlistIsSilent_data();
    void failedAllowlistIsSilent();
    void failedAllowlistEmptiesTheSelection();
    void readsWhetherTheAllowlistIsEnabled_data();
    void readsWhetherTheAllowlistIsEnabled();
    void unknownWhetherTheAllowlistIsEnabled_data();
    void unknownWhetherTheAllowlistIsEnabled();
    void everyReadCallsAgain();
    void fetchesAlwaysAllowed();
    void failedAlwaysAllowedIsSilent_data();
    void failedAlwaysAllowedIsSilent();
    void togglesAllowed();
    void togglesEveryCopy();
    void clearsAllowed();
    void selectsAllAllowed();
    void appliesAllowed();
    void setAllowlistIsAnnouncedWhateverTheOutcome_data();
    void setAllowlistIsAnnouncedWhateverTheOutcome();
    void enablesTheAllowlist_data();
    void enablesTheAllowlist();
    void disablesTheAllowlist_data();
    void disablesTheAllowlist();
    void sameStateIsNotSent();

private:
    /// Lets the model fetch both allow-lists from a daemon without a fault.
    void enable(ServedModel *model);

    Applications m_applications;
    ApplicationServices m_services;
};

namespace
{
const QStringList s_none;
}

void ApplicationAllowlistTest::initTestCase()
{
    writeThreeApplications(m_applications);
}

void ApplicationAllowlistTest::init()
{
    m_services.reset();
}

void ApplicationAllowlistTest::enable(ServedModel *model)
{
    model->setFilterModeEnabled(true);
    m_services.takeCalls();
    QCOMPARE(model->selectedApps(), texts({"a", "x"}));
    model->takeSignals();
}

void ApplicationAllowlistTest::fetchesAllowlist()
{
    const MessageLog log;
    ServedModel model(&m_services);
    model.setFilterMode(Model::AllowedOnly);
    QCOMPARE(model.takeSignals(),
             texts({"filterModeChanged", "modelAboutToBeReset", "countChanged", "modelReset"}));
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(m_services.takeCalls(), texts({"GetAllowlist(1000) u"}));
    QCOMPARE(model.takeSignals(), allowlistAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({true, false, false}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationAllowlistTest::sameAllowlistIsNotAnnounced()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    enable(&model);
    m_services.answer("GetAllowlistEnabled", "1");
    QVERIFY(model.filterModeEnabled());
    QCOMPARE(m_services.takeCalls(),
             texts({"GetAllowlistEnabled(1000) u", "GetAlwaysAllowedApplications()", "GetAllowlist(1000) u"}));
    QCOMPARE(model.takeSignals(), s_none);
    m_services.answer("GetAllowlist", "['x', 'a']");
    QVERIFY(model.filterModeEnabled());
    m_services.settle();
    QCOMPARE(model.takeSignals(), allowlistAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"x", "a"}));
}

void ApplicationAllowlistTest::allowlistOfNoRows()
{
    ServedModel model(&m_services);
    model.setApplications(nullptr);
    QCOMPARE(model.count(), 0);
    model.setFilterMode(Model::AllowedOnly);
    model.takeSignals();
    m_services.settle();
    QCOMPARE(model.takeSignals(), texts({"allowlistChanged", "selectedAppsChanged"}));
    m_services.takeCalls();
    model.selectAllApps();
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, []) uas", "SetAllowlist(1000, []) uas"}));
}

void ApplicationAllowlistTest::failedAllowlistIsSilent_data()
{
    faults("GetAllowlist");
}

void ApplicationAllowlistTest::failedAllowlistIsSilent()
{
    QFETCH(Fault, fault);
    QFETCH(QDBusError, error);
    const MessageLog log;
    ServedModel model(&m_services);
    m_services.spoil("GetAllowlist", fault);
    model.setFilterMode(Model::AllowedOnly);
    model.takeSignals();
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(log.take(),
             QStringList(warning(text("Failed to get allowlist for uid 1000. Error: ") + unquotedText(error))));
}

void ApplicationAllowlistTest::failedAllowlistEmptiesTheSelection()
{
    const MessageLog log;
    ServedModel model(&m_services, Model::AllowedOnly);
    enable(&model);
    m_services.answer("GetAllowlistEnabled", "1");
    m_services.spoil("GetAllowlist", Fault::Refuses);
    QVERIFY(model.filterModeEnabled());
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({false, false, false}));
    QCOMPARE(log.take().size(), 1);
}

void ApplicationAllowlistTest::readsWhetherTheAllowlistIsEnabled_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("enabled");
    for (const char *type : {"y", "n", "q", "i", "u", "x", "t", "d", "b", "s"}) {
        const QByteArray quote = *type == 's' ? "'" : "";
        for (const char *value : {"0", "1"}) {
            QTest::addRow("%s of type %s", value, type)
                << QByteArray(type) << quote + value + quote << (*value == '1');
        }
    }
    for (const char *type : {"n", "i", "x", "d"}) {
        QTest::addRow("-1 of type %s", type) << QByteArray(type) << QByteArray("-1") << true;
    }
    QTest::newRow("large") << QByteArray("i") << QByteArray("2147483647") << true;
    QTest::newRow("below a half") << QByteArray("d") << QByteArray("0.4") << false;
    QTest::newRow("not a number") << QByteArray("s") << QByteArray("'enabled'") << false;
    QTest::newRow("empty text") << QByteArray("s") << QByteArray("''") << false;
    QTest::newRow("list") << QByteArray("ai") << QByteArray("[1]") << false;
    QTest::newRow("map") << QByteArray("a{sv}") << QByteArray("{'enabled': 1}") << false;
    QTest::newRow("first of two") << QByteArray("ii") << QByteArray("(1, 0)") << true;
}

void ApplicationAllowlistTest::readsWhetherTheAllowlistIsEnabled()
{
    QFETCH(QByteArray, signature);
    QFETCH(QByteArray, answer);
    QFETCH(bool, enabled);
    const MessageLog log;
    ServedModel model(&m_services, Model::AllowedOnly);
    m_services.answer("GetAllowlistEnabled", answer, signature);
    QCOMPARE(model.filterModeEnabled(), enabled);
    QStringList calls = texts({"GetAllowlistEnabled(1000) u"});
    if (enabled) {
        calls += texts({"GetAlwaysAllowedApplications()", "GetAllowlist(1000) u"});
    }
    QCOMPARE(m_services.takeCalls(), calls);
    QCOMPARE(log.take(), s_none);
}

void ApplicationAllowlistTest::unknownWhetherTheAllowlistIsEnabled_data()
{
    faults("GetAllowlistEnabled");
}

void ApplicationAllowlistTest::unknownWhetherTheAllowlistIsEnabled()
{
    QFETCH(Fault, fault);
    ServedModel model(&m_services, Model::AllowedOnly);
    m_services.answer("GetAllowlistEnabled", "1");
    QVERIFY(model.filterModeEnabled());
    m_services.takeCalls();
    model.takeSignals();
    const MessageLog log;
    m_services.spoil("GetAllowlistEnabled", fault);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!model.filterModeEnabled());
    QVERIFY(timer.elapsed() < NoTime);
    QCOMPARE(m_services.takeCalls(), fault == Fault::IsMissing ? s_none : texts({"GetAllowlistEnabled(1000) u"}));
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationAllowlistTest::everyReadCallsAgain()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    QVERIFY(!model.filterModeEnabled());
    QVERIFY(!model.property("filterModeEnabled").toBool());
    QCOMPARE(m_services.takeCalls(), texts({"GetAllowlistEnabled(1000) u", "GetAllowlistEnabled(1000) u"}));
    model.setFilterMode(Model::AutostartedOnly);
    m_services.takeCalls();
    QVERIFY(!model.filterModeEnabled());
    QCOMPARE(m_services.takeCalls(), s_none);
}

void ApplicationAllowlistTest::fetchesAlwaysAllowed()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    m_services.answer("GetAllowlistEnabled", "1");
    QVERIFY(model.filterModeEnabled());
    m_services.settle();
    QCOMPARE(model.takeSignals(),
             texts({"alwaysAllowedApplicationsChanged", "selectedAppsChanged", "dataChanged 0-2"}));
    QCOMPARE(model.column(Model::AlwaysAllowedRole), QVariantList({false, true, false}));
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    model.setFilterMode(NoMode); // which rebuilds the list
    QCOMPARE(model.column(Model::AlwaysAllowedRole), QVariantList({false, true, false}));
}

void ApplicationAllowlistTest::failedAlwaysAllowedIsSilent_data()
{
    faults("GetAlwaysAllowedApplications");
}

void ApplicationAllowlistTest::failedAlwaysAllowedIsSilent()
{
    QFETCH(Fault, fault);
    QFETCH(QDBusError, error);
    ServedModel model(&m_services, Model::AllowedOnly);
    m_services.answer("GetAllowlistEnabled", "1");
    QVERIFY(model.filterModeEnabled());
    m_services.settle();
    QVERIFY(model.column(Model::AlwaysAllowedRole).contains(true));
    model.setFilterModeEnabled(false);
    m_services.settle();
    model.takeSignals();
    const MessageLog log;
    m_services.spoil("GetAlwaysAllowedApplications", fault);
    model.setFilterModeEnabled(true); // which also fetches if it has failed
    m_services.settle();
    const QStringList announced = model.takeSignals();
    QVERIFY(!announced.contains(text("alwaysAllowedApplicationsChanged")));
    QCOMPARE(model.column(Model::AlwaysAllowedRole), QVariantList({false, false, false}));
    QCOMPARE(log.take().filter(text("always")),
             QStringList(warning(text("Failed to get always allowlist. Error: ") + unquotedText(error))));
}

void ApplicationAllowlistTest::togglesAllowed()
{
    const MessageLog log;
    ServedModel model(&m_services, Model::AllowedOnly);
    model.toggleSelectedApp(text("b.desktop"));
    QCOMPARE(model.selectedApps(), texts({"a", "x", "b"}));
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, ['a', 'x', 'b']) uas"}));
    QCOMPARE(model.takeSignals(), allowlistAnnouncement());
    model.toggleSelectedApp(text("a.desktop"));
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, ['x', 'b']) uas"}));
    QCOMPARE(model.takeSignals(), allowlistAnnouncement());
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({false, true, false}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationAllowlistTest::togglesEveryCopy()
{
    m_services.answer("GetAllowlist", "['a', 'b', 'a']");
    ServedModel model(&m_services, Model::AllowedOnly);
    model.toggleSelectedApp(text("a.desktop"));
    model.toggleSelectedApp(text("a"));
    model.toggleSelectedApp(text("B.desktop"));
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, ['b']) uas", "SetAllowlist(1000, ['b', 'a']) uas",
                                            "SetAllowlist(1000, ['b', 'a', 'B']) uas"}));
}

void ApplicationAllowlistTest::clearsAllowed()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    model.clearSelectedApps();
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, []) uas"}));
    QCOMPARE(model.takeSignals(), allowlistAnnouncement());
}

void ApplicationAllowlistTest::selectsAllAllowed()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    model.selectAllApps();
    QCOMPARE(model.selectedApps(), texts({"a", "b", "c"}));
    QCOMPARE(m_services.takeCalls(),
             texts({"SetAllowlist(1000, []) uas", "SetAllowlist(1000, ['a', 'b', 'c']) uas"}));
    QCOMPARE(model.takeSignals(), allowlistAnnouncement() + allowlistAnnouncement());
    QCOMPARE(model.column(Model::AllowedRole), QVariantList({true, true, true}));
}

void ApplicationAllowlistTest::appliesAllowed()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    model.applyPolicyRules(texts({"a", "x"}));
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, ['a', 'x']) uas"}));
    QCOMPARE(model.takeSignals(), allowlistAnnouncement());
    model.applyPolicyRules(texts({"c", "c", ""}));
    QCOMPARE(model.selectedApps(), texts({"c", "c", ""}));
    QCOMPARE(m_services.takeCalls(), texts({"SetAllowlist(1000, ['c', 'c', '']) uas"}));
}

void ApplicationAllowlistTest::setAllowlistIsAnnouncedWhateverTheOutcome_data()
{
    faults("SetAllowlist");
}

void ApplicationAllowlistTest::setAllowlistIsAnnouncedWhateverTheOutcome()
{
    QFETCH(Fault, fault);
    const MessageLog log;
    ServedModel model(&m_services, Model::AllowedOnly);
    m_services.spoil("SetAllowlist", fault);
    model.applyPolicyRules(texts({"c"}));
    QCOMPARE(m_services.takeCalls(),
             fault == Fault::IsMissing ? s_none : texts({"SetAllowlist(1000, ['c']) uas"}));
    QCOMPARE(model.takeSignals(), allowlistAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"c"}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationAllowlistTest::enablesTheAllowlist_data()
{
    QTest::addColumn<bool>("fails");
    QTest::newRow("succeeds") << false;
    QTest::newRow("fails") << true;
}

void ApplicationAllowlistTest::enablesTheAllowlist()
{
    QFETCH(bool, fails);
    const MessageLog log;
    if (fails) {
        m_services.spoil("SetAllowlistEnabled", Fault::Refuses);
    }
    ServedModel model(&m_services, Model::AllowedOnly);
    m_services.answer("GetAllowlist", "['c']");
    model.setFilterModeEnabled(true);
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(m_services.takeCalls(),
             texts({"SetAllowlistEnabled(1000, 1) ui", "GetAlwaysAllowedApplications()", "GetAllowlist(1000) u"}));
    QCOMPARE(model.takeSignals(),
             texts({"filterModeEnabledChanged", "allowlistEnabledChanged", "alwaysAllowedApplicationsChanged",
                    "selectedAppsChanged", "dataChanged 0-2"})
                 + allowlistAnnouncement());
    QCOMPARE(model.selectedApps(), texts({"c"}));
    QCOMPARE(log.take(), s_none);
}

void ApplicationAllowlistTest::disablesTheAllowlist_data()
{
    faults("SetAllowlistEnabled");
    QTest::newRow("succeeds") << Fault::AnswersNothing << QDBusError(); // as it should
}

void ApplicationAllowlistTest::disablesTheAllowlist()
{
    QFETCH(Fault, fault);
    ServedModel model(&m_services, Model::AllowedOnly);
    enable(&model);
    const MessageLog log;
    m_services.spoil("SetAllowlistEnabled", fault);
    model.setFilterModeEnabled(false);
    QCOMPARE(model.takeSignals(), s_none);
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QStringList calls = m_services.takeCalls();
    if (fault == Fault::Refuses || fault == Fault::AnswersNothing) {
        QCOMPARE(calls, texts({"SetAllowlistEnabled(1000, 0) ui", "SetAllowlist(1000, []) uas"}));
    }
    QCOMPARE(model.takeSignals(),
             texts({"filterModeEnabledChanged", "allowlistEnabledChanged"}) + allowlistAnnouncement());
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(log.take(), s_none);
}

void ApplicationAllowlistTest::sameStateIsNotSent()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    model.setFilterModeEnabled(false);
    QCOMPARE(m_services.takeCalls(), s_none);
    m_services.answer("GetAllowlistEnabled", "1");
    QVERIFY(model.filterModeEnabled());
    m_services.takeCalls();
    model.setFilterModeEnabled(true);
    QCOMPARE(m_services.takeCalls(), s_none);
    m_services.answer("GetAllowlistEnabled", "0");
    QVERIFY(!model.filterModeEnabled());
    m_services.takeCalls();
    model.setFilterModeEnabled(true);
    QCOMPARE(m_services.takeCalls().value(0), text("SetAllowlistEnabled(1000, 1) ui"));
}

void ApplicationAllowlistTest::filterFollowsTheModel()
{
    ServedModel model(&m_services);
    UserApplicationsFilterModel filter;
    filter.setSourceModel(&model);
    const auto shown = [&filter] {
        QString names;
        for (int row = 0; row < filter.rowCount(); ++row) {
            names.append(filter.index(row, 0).data(Model::NameRole).toString());
        }
        return names;
    };
    QCOMPARE(shown(), QString());
    model.setFilterMode(Model::AllowedOnly); // "a" is
    m_services.settle();
    QCOMPARE(shown(), text("A"));
    QSignalSpy count(&filter, &UserApplicationsFilterModel::countChanged);
    m_services.answer("GetAllowlist", "['a', 'c']");
    model.toggleSelectedApp(text("c.desktop"));
    m_services.settle();
    QCOMPARE(shown(), text("AC"));
    QVERIFY(count.count() > 0);
    QCOMPARE(filter.count(), 2);
    m_services.answer("GetAllowlist", "[]");
    model.clearSelectedApps();
    m_services.settle();
    QCOMPARE(shown(), QString());
    model.setFilterMode(NoMode); // resets the model, which forgets the lists
    QCOMPARE(shown(), QString());
}

QTEST_GUILESS_MAIN(ApplicationAllowlistTest)
#include "tst_applicationallowlist.moc"
