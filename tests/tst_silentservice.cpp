// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"
#include "applications/autostartclient.h"
#include "common/constants.h"
#include "messagelog.h"
#include "quickactions.h"
#include "text.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <optional>

using namespace QuickActions;

namespace
{
// In milliseconds. Without a limit of the bus, libdbus gives a call 25 s.
constexpr int LeastTime = 20000;
constexpr int MostTime = 40000;
}

/// A reader that emits a signal for each error that it receives.
class WatchedReader : public QuickActionReader
{
    Q_OBJECT

public:
    WatchedReader()
        : QuickActionReader(nullptr)
    {
    }

Q_SIGNALS:
    void failed(const QString &error);

private Q_SLOTS:
    // Qt looks for the slot by its name, in this class first.
    void triggerActionError(const QDBusError &error, const QDBusMessage &msg)
    {
        const QMetaObject &meta = QuickActionReader::staticMetaObject;
        const int index = meta.indexOfSlot("triggerActionError(QDBusError,QDBusMessage)");
        QVERIFY(meta.method(index).invoke(this, Q_ARG(QDBusError, error), Q_ARG(QDBusMessage, msg)));
        Q_EMIT failed(error.name());
    }
};

/// Calls of services that own their name and never reply, with the default time-out.
class SilentServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void otherFailureIsReported();
    void callsEndAfterTheDefaultTime();
    void cleanupTestCase();

private:
    std::unique_ptr<Store> m_store;
    std::unique_ptr<Target> m_target;
    std::unique_ptr<DBusPeer> m_autostart;
};

void SilentServiceTest::initTestCase()
{
    m_store = std::make_unique<Store>();
    m_target = std::make_unique<Target>();
    m_autostart = std::make_unique<DBusPeer>(QDBusConnection::SystemBus, Constants::AutostartService, text("/"),
                                             text("com.velka.unused"));
    m_target->suspend();
    m_autostart->suspend();
}

void SilentServiceTest::cleanupTestCase()
{
    m_autostart.reset();
    m_target.reset();
    m_store.reset();
}

void SilentServiceTest::otherFailureIsReported()
{
    const MessageLog log;
    WatchedReader reader;
    QSignalSpy failed(&reader, &WatchedReader::failed);
    reader.trigger(actionOf(s_missing, text("package")));
    QVERIFY(failed.wait());
    QCOMPARE(failed, (QList<QVariantList>{{s_serviceUnknown}}));
    QCOMPARE(log.take().replaceInStrings(text("WatchedReader"), text("QuickActionReader")),
             QStringList{unknownFailure(s_missing)});
    settle();
    QCOMPARE(m_store->calls(), QList<QVariantList>{callFor(text("package"))});
}

// At the same time, so that the test need not wait twice.
void SilentServiceTest::callsEndAfterTheDefaultTime()
{
    const QList<QVariantList> earlierCalls = m_store->calls();
    const MessageLog log;
    WatchedReader reader;
    QSignalSpy failed(&reader, &WatchedReader::failed);
    QObject owner;
    AutostartClient client(&owner);
    std::optional<bool> hasList;
    QElapsedTimer elapsed;
    elapsed.start();
    reader.trigger(actionOf(s_service, text("package")));
    client.fetchEnabled(1000, [&](const std::optional<QStringList> &list) { hasList = list.has_value(); });
    QTRY_VERIFY_WITH_TIMEOUT(failed.count() > 0 || hasList, MostTime);
    const qint64 firstEnd = elapsed.elapsed();
    QTRY_VERIFY_WITH_TIMEOUT(failed.count() > 0 && hasList, MostTime);
    const qint64 lastEnd = elapsed.elapsed();
    QVERIFY2(firstEnd >= LeastTime, qPrintable(QString::number(firstEnd)));
    QVERIFY2(lastEnd <= MostTime, qPrintable(QString::number(lastEnd)));
    settleFailures();

    QCOMPARE(failed, (QList<QVariantList>{{s_noReply}}));
    QCOMPARE(m_store->calls(), earlierCalls);
    QCOMPARE(hasList, false);
    const QStringList messages = log.take(); // none about the action
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].contains(text("Failed to get autostart list for uid 1000. Error:")),
             qPrintable(messages[0]));
    QVERIFY2(messages[0].contains(s_noReply), qPrintable(messages[0]));

    m_target->resume();
    reader.trigger(actionOf(s_service));
    settle();
    QCOMPARE(m_target->calls().size(), 2); // it receives the first one now, too
    settle();
    QCOMPARE(failed.count(), 1);
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(SilentServiceTest)
#include "tst_silentservice.moc"
