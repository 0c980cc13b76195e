// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "modelreplica.h"
#include "signallog.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QPointer>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <memory>

using Handler = std::function<void(LauncherFolderModel *)>;
using Connector = std::function<void(LauncherFolderModel *, const std::function<void()> &)>;
Q_DECLARE_METATYPE(Handler)
Q_DECLARE_METATYPE(Connector)

// Items and folders are deleted by others than the model that owns them.
class LauncherItemDeletionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isRefusedToQml();
    void removesTheRow();
    void removesTheRowInAFolder();
    void createsADeletedFolderAgain();
    void happensInAHandler_data();
    void happensInAHandler();
    void happensToTheModelInAHandler_data();
    void happensToTheModelInAHandler();
    void happensAtRandom();

private:
    std::unique_ptr<Applications> m_applications;
};

void LauncherItemDeletionTest::init()
{
    m_applications = std::make_unique<Applications>();
    for (const char *name : {"B", "D", "F"}) {
        m_applications->write(qPrintable(text("first/%1.desktop").arg(text(name).toLower())), application(name));
    }
}

void LauncherItemDeletionTest::isRefusedToQml()
{
    m_applications->writeMenu("<Menu><Menu><Name>F</Name><Filename>b.desktop</Filename></Menu></Menu>");
    LauncherFolderModel model;
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(text("launcher"), &model);
    for (const QString &object :
         {text("launcher.get(0)"), text("launcher.get(1)"), text("launcher.get(0).get(0)"),
          text("launcher.data(launcher.index(1, 0), %1)").arg(LauncherFolderItem::ObjectRole)}) {
        QQmlExpression expression(engine.rootContext(), nullptr, object + text(".destroy()"));
        expression.evaluate();
        QVERIFY(expression.error().description().contains(text("indestructible")));
    }
    engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(rows(model), text("F{B} D F"));
}

void LauncherItemDeletionTest::removesTheRow()
{
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(&model, Qt::DisplayRole);
    SignalLog log(&model);
    int seen = 0;
    const auto connection = connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [&] {
        QVERIFY(!model.get(1));
        QCOMPARE(model.index(1).data(), QVariant());
        ++seen;
    });
    delete model.get(1);
    QCOMPARE(rows(model), text("B F"));
    QVERIFY(replica.isEqual());
    QCOMPARE(seen, 1);
    disconnect(connection);
    QCOMPARE(log.take(), (QStringList{text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1")}));
    m_applications->remove("first/b.desktop");
    QTRY_COMPARE(rows(model), text("F"));
    // It is an application like others when its file changes.
    m_applications->write("first/d.desktop", application("E"));
    QTRY_COMPARE(rows(model), text("E F"));
    m_applications->remove("first/d.desktop");
    QTRY_COMPARE(rows(model), text("F"));
    delete model.get(0);
    m_applications->remove("first/f.desktop");
    m_applications->write("first/b.desktop", application("B"));
    QTRY_COMPARE(rows(model), text("B"));
    QVERIFY(replica.isEqual());
}

void LauncherItemDeletionTest::removesTheRowInAFolder()
{
    m_applications->writeMenu("<Menu><Menu><Name>F</Name><Filename>b.desktop</Filename>"
                              "<Filename>d.desktop</Filename></Menu></Menu>");
    LauncherFolderModel model;
    const auto *folder = qobject_cast<LauncherFolderItem *>(model.get(0));
    delete folder->get(0);
    QCOMPARE(rows(model), text("F{D} F"));
    // An item that waits for its deletion may be deleted before.
    const QPointer<QObject> d = folder->get(0);
    m_applications->remove("first/d.desktop");
    while (folder->itemCount() > 0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    delete d;
    QCOMPARE(rows(model), text("F{} F"));
    m_applications->writeMenu("<Menu/>");
    model.load();
    QCOMPARE(rows(model), text("F"));
}

void LauncherItemDeletionTest::createsADeletedFolderAgain()
{
    m_applications->writeMenu("<Menu><Menu><Name>F</Name><Menu><Name>G</Name><Filename>b.desktop</Filename></Menu>"
                              "<Filename>d.desktop</Filename></Menu></Menu>");
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    SignalLog log(&model);
    QCOMPARE(rows(model), text("F{G{B} D} F"));
    const QPointer<QObject> b
        = qobject_cast<LauncherFolderItem *>(qobject_cast<LauncherFolderItem *>(model.get(0))->get(0))->get(0);
    delete qobject_cast<LauncherFolderItem *>(model.get(0))->get(0);
    QCOMPARE(rows(model), text("F{G{B} D} F"));
    delete model.get(0);
    QCOMPARE(rows(model), text("F{G{B} D} F"));
    QVERIFY(b);
    QCOMPARE(log.take(), (QStringList{text("modelAboutToBeReset"), text("modelReset"), text("modelAboutToBeReset"),
                                      text("modelReset")}));
    m_applications->write("first/b.desktop", application("Z"));
    QTRY_COMPARE(rows(model), text("F{G{Z} D} F"));
}

void LauncherItemDeletionTest::happensInAHandler_data()
{
    QTest::addColumn<Connector>("signal");
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<QString>("rows");

    const auto connector = [](auto signal) -> Connector {
        return [signal](LauncherFolderModel *model, const std::function<void()> &slot) {
            QObject::connect(model, signal, model, slot);
        };
    };
    using Model = QAbstractItemModel;
    const QVector<QPair<const char *, Connector>> signals{
        {"rowsAboutToBeInserted", connector(&Model::rowsAboutToBeInserted)},
        {"rowsInserted", connector(&Model::rowsInserted)},
        {"rowsAboutToBeRemoved", connector(&Model::rowsAboutToBeRemoved)},
        {"rowsRemoved", connector(&Model::rowsRemoved)},
        {"rowsAboutToBeMoved", connector(&Model::rowsAboutToBeMoved)},
        {"rowsMoved", connector(&Model::rowsMoved)},
        {"dataChanged", connector(&Model::dataChanged)},
        {"itemChanged", connector(&LauncherFolderItem::itemChanged)},
    };
    const QVector<QPair<const char *, Handler>> handlers{
        {"all",
         [](LauncherFolderModel *model) {
             for (int row = model->itemCount() - 1; row >= 0; --row) {
                 delete model->get(row);
             }
         }},
        {"load", [](LauncherFolderModel *model) { model->load(); }},
    };
    for (const auto &signal : signals) {
        for (const auto &handler : handlers) {
            QTest::addRow("%s, %s", signal.first, handler.first) << signal.second << handler.second;
        }
    }
}

void LauncherItemDeletionTest::happensInAHandler()
{
    QFETCH(Connector, signal);
    QFETCH(Handler, handler);
    LauncherFolderModel model;
    const ModelReplica replica(&model, Qt::DisplayRole);
    int calls = 0;
    signal(&model, [&] {
        if (++calls == 1) {
            handler(&model);
        }
    });
    m_applications->writeMenu("<Menu><Menu><Name>Folder</Name><Filename>d.desktop</Filename></Menu></Menu>");
    m_applications->write("first/a.desktop", application("A"));
    m_applications->write("first/b.desktop", application("Z"));
    m_applications->remove("first/d.desktop");
    m_applications->write("first/z.desktop", application("Last"));
    QTRY_VERIFY(calls > 0);
    // What was deleted comes back when its file changes, as any other application.
    for (const char *name : {"a", "b", "f", "z"}) {
        m_applications->replace(qPrintable(text("first/%1.desktop").arg(text(name))), application(name));
    }
    QTRY_COMPARE(fileIds(model),
                 (QStringList{text("a.desktop"), text("b.desktop"), text("f.desktop"), text("z.desktop")}));
    QTRY_VERIFY(rows(model).endsWith(text("a b f z")));
    QVERIFY(replica.isEqual());
}

void LauncherItemDeletionTest::happensToTheModelInAHandler_data()
{
    QTest::addColumn<Connector>("signal");
    const auto row = [](const char *name, auto signal) {
        QTest::newRow(name) << Connector([signal](LauncherFolderModel *model, const std::function<void()> &slot) {
            QObject::connect(model, signal, model, slot);
        });
    };
    row("rowsInserted", &QAbstractItemModel::rowsInserted);
    row("rowsRemoved", &QAbstractItemModel::rowsRemoved);
    row("rowsMoved", &QAbstractItemModel::rowsMoved);
    row("dataChanged", &QAbstractItemModel::dataChanged);
    row("itemChanged", &LauncherFolderItem::itemChanged);
}

void LauncherItemDeletionTest::happensToTheModelInAHandler()
{
    QFETCH(Connector, signal);
    QPointer<LauncherFolderModel> model = new LauncherFolderModel;
    signal(model, [&model] { delete model; });
    m_applications->write("first/a.desktop", application("A"));
    m_applications->write("first/b.desktop", application("Z"));
    m_applications->remove("first/d.desktop");
    m_applications->write("first/f.desktop", application("F", "Icon=f\n"));
    m_applications->write("first/z.desktop", application("Last"));
    QTRY_VERIFY(!model);
}

void LauncherItemDeletionTest::happensAtRandom()
{
    const QByteArray menu = "<Menu><Menu><Name>F</Name><Filename>b.desktop</Filename><Menu><Name>G</Name>"
                            "<Filename>0.desktop</Filename></Menu></Menu><Filename>5.desktop</Filename></Menu>";
    m_applications->writeMenu(menu);
    LauncherFolderModel model;
    const ModelReplica replica(&model, Qt::DisplayRole);
    QRandomGenerator random(3);
    const auto deleteSomething = [&] {
        if (random.bounded(3) == 0) {
            LauncherFolderItem *folder = &model;
            QObject *object = folder->get(random.bounded(folder->itemCount() + 1));
            if (auto *inner = qobject_cast<LauncherFolderItem *>(object); inner && random.bounded(3) > 0) {
                object = inner->get(0);
            }
            delete object;
        } else if (random.bounded(5) == 0) {
            m_applications->writeMenu(random.bounded(2) ? menu : QByteArrayLiteral("<Menu/>"));
            model.load();
        }
    };
    const LauncherFolderModel last; // is notified after the other
    connect(&model, &QAbstractItemModel::rowsAboutToBeInserted, this, deleteSomething);
    connect(&model, &QAbstractItemModel::rowsInserted, this, deleteSomething);
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, deleteSomething);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, deleteSomething);
    connect(&model, &QAbstractItemModel::rowsAboutToBeMoved, this, deleteSomething);
    connect(&model, &QAbstractItemModel::rowsMoved, this, deleteSomething);
    connect(&model, &QAbstractItemModel::dataChanged, this, deleteSomething);
    connect(&model, &LauncherFolderItem::itemChanged, this, deleteSomething);
    for (int round = 0; round < 10; ++round) {
        for (int i = 0; i < 10; ++i) {
            const QString file = text("first/%1.desktop").arg(random.bounded(10));
            m_applications->write(qPrintable(file), application(QByteArray::number(random.bounded(10)),
                                                                random.bounded(3) ? "" : "NoDisplay=true\n"));
        }
        deleteSomething();
        const QString mark = text("mark%1").arg(round);
        m_applications->write("first/zz.desktop", application(mark.toUtf8()));
        QTRY_VERIFY(rows(last).contains(mark));
        QVERIFY(replica.isEqual());
    }
}

QTEST_GUILESS_MAIN(LauncherItemDeletionTest)
#include "tst_launcheritemdeletion.moc"
