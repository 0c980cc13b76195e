// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "entrypagehost.h"
#include "messagelog.h"
#include "propertylog.h"
#include "testsize.h"
#include "text.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <atomic>
#include <functional>
#include <iterator>

class EntryPageLifetimeTest : public EntryPageHost
{
    Q_OBJECT

private Q_SLOTS:
    void pageMayThrow();
    void pageMayBeDeleted();
    void pageMayBeDeletedBeforeItIsShown();
    void mayBeDeletedWhileLoading_data();
    void mayBeDeletedWhileLoading();
    void pageMayChangeItsHost_data();
    void pageMayChangeItsHost();
    void handlersMayDeleteIt_data();
    void handlersMayDeleteIt();
    void randomUse();
};

void EntryPageLifetimeTest::pageMayThrow()
{
    install(entry(
        write(text("page.qml"),
              "import QtQuick 2.15\nItem { width: none; Component.onCompleted: { throw new Error('x') } }")));
    const MessageLog log;
    open();
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    QCOMPARE(MessageLog::take().size(), 2); // Qt reports each
    QCOMPARE(item()->size(), QSizeF(200, 100));
}

void EntryPageLifetimeTest::pageMayBeDeleted()
{
    const QString file = write(text("page.qml"), "import QtQuick 2.15\nItem {}");
    install(entry(file));
    open();
    PropertyLog properties(content(), EntryPageContent::staticMetaObject);
    QTRY_COMPARE(status(), EntryPageContent::Ready);
    const MessageLog log;
    delete item();
    QCOMPARE(status(), EntryPageContent::Error);
    QVERIFY(!item());
    const QVariantMap deletion = error(text(Messages::PageIsDeleted), file, 0, 0);
    QCOMPARE(errors(), QVariantList{deletion});
    QCOMPARE(MessageLog::take(), QStringList{warning(deletion)});
    QVERIFY(properties.isRight());
    m_page->setWidth(10);
    uninstall();
    install(entry(file));
    QTRY_COMPARE(status(), EntryPageContent::Ready);
}

void EntryPageLifetimeTest::pageMayBeDeletedBeforeItIsShown()
{
    const QString file = write(text("page.qml"),
                               "import QtQuick 2.15\n"
                               "Item { id: page; Component.onCompleted: host.deleteSoon(page) }");
    install(entry(file));
    const MessageLog log;
    open();
    QTRY_VERIFY(status() != EntryPageContent::Loading);
    const QVariantMap deletion = error(text(Messages::PageIsDeleted), file, 0, 0);
    QCOMPARE(errors(), QVariantList{deletion});
    QCOMPARE(MessageLog::take(), QStringList{warning(deletion)});
}

void EntryPageLifetimeTest::mayBeDeletedWhileLoading_data()
{
    QTest::addColumn<int>("steps");
    for (int steps : {0, 1, 2, 3, 5, 10, 100}) {
        QTest::addRow("%d steps", steps) << steps;
    }
}

void EntryPageLifetimeTest::mayBeDeletedWhileLoading()
{
    QFETCH(int, steps);
    m_engine->setIncubationController(&m_controller);
    install(
        entry(write(text("page.qml"), "import QtQuick 2.15\nItem { Repeater { model: 50; Item { Item {} } } }")));
    open();
    if (steps > 0) {
        QTRY_COMPARE(m_controller.incubatingObjectCount(), 1);
    }
    std::atomic<bool> goesOn{false}; // one object at a time
    for (int i = 0; i < steps; ++i) {
        m_controller.incubateWhile(&goesOn);
    }
    QCOMPARE(status(), EntryPageContent::Loading);
    m_page.reset();
    QTRY_COMPARE(m_controller.incubatingObjectCount(), 0);
    m_engine->setIncubationController(nullptr);
}

void EntryPageLifetimeTest::pageMayChangeItsHost_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<bool>("isAsynchronous");
    for (bool isAsynchronous : {false, true}) {
        for (const char *call : {"host.deletePage()", "host.setPath('')", "host.setPath('other')"}) {
            QTest::addRow("%s, %s", call, isAsynchronous ? "asynchronous" : "synchronous")
                << QByteArray(call) << isAsynchronous;
        }
    }
}

void EntryPageLifetimeTest::pageMayChangeItsHost()
{
    QFETCH(QByteArray, call);
    QFETCH(bool, isAsynchronous);
    if (isAsynchronous) {
        m_engine->setIncubationController(&m_controller);
    }
    const QString other = write(text("other.qml"), "import QtQuick 2.15\nItem { objectName: 'other' }");
    const QString page = write(text("page.qml"),
                               "import QtQuick 2.15\nItem { Item { Component.onCompleted: " + call + " } }");
    install(entry(page) + R"(, {"path": "other", "params": {"source": ")" + other.toUtf8() + "\"}}");
    open();
    const auto isDone = [this] {
        m_controller.incubateFor(1000);
        const bool isOther = m_page && item() && item()->objectName() == text("other");
        return !m_page || status() == EntryPageContent::Null || isOther;
    };
    QTRY_VERIFY(isDone());
    m_engine->setIncubationController(nullptr);
}

void EntryPageLifetimeTest::handlersMayDeleteIt_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("path") << QByteArray(SIGNAL(pathChanged()));
    QTest::newRow("status") << QByteArray(SIGNAL(statusChanged()));
    QTest::newRow("item") << QByteArray(SIGNAL(itemChanged()));
    QTest::newRow("errors") << QByteArray(SIGNAL(errorsChanged()));
}

void EntryPageLifetimeTest::handlersMayDeleteIt()
{
    QFETCH(QByteArray, signal);
    install(entry(write(text("page.qml"), "import QtQuick 2.15\nItem {}")));
    open(QString());
    QVERIFY(connect(content(), signal.constData(), this, SLOT(deletePage())));
    setPath(s_path);
    QTRY_VERIFY(!m_page || status() == EntryPageContent::Ready);
    if (m_page) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text(Messages::CannotShowPage)));
        reload(entry(text("none")));
    }
    QVERIFY(!m_page);
}

void EntryPageLifetimeTest::randomUse()
{
    const QStringList sources{write(text("page.qml"), "import QtQuick 2.15\nItem { property var entry }"),
                              write(text("other.qml"), "import QtQuick 2.15\nItem {}"),
                              write(text("broken.qml"), "import QtQuick 2.15\nItem {"), text("none")};
    const QStringList paths{s_path, text("sound"), QString()};
    m_engine->setIncubationController(&m_controller);
    const MessageLog log;
    QRandomGenerator random(5);
    open();
    PropertyLog properties(content(), EntryPageContent::staticMetaObject);
    const auto source = [&] { return sources.at(random.bounded(sources.size())); };
    const std::function<void()> steps[] = {
        [&] { uninstall(); },
        [&] { install(entry(source())); },
        [&] { reload(entry(source())); },
        [&] { setPath(paths.at(random.bounded(paths.size()))); },
        [&] { delete item(); },
        [&] { QCoreApplication::processEvents(); },
        [&] { m_controller.incubateFor(1); },
    };
    for (int i = 0; i < testSize(20000); ++i) {
        steps[random.bounded(int(std::size(steps)))]();
        QVERIFY(properties.isRight());
        QCOMPARE(item() != nullptr, status() == EntryPageContent::Ready);
        QCOMPARE(errors().isEmpty(), status() != EntryPageContent::Error);
    }
    m_engine->setIncubationController(nullptr);
}

QTEST_MAIN(EntryPageLifetimeTest)

#include "tst_entrypagelifetime.moc"
