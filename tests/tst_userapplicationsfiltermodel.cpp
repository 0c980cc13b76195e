// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/userapplicationsfiltermodel.h"

#include "applications/applicationssettingsmodel.h"
#include "common/messages.h"
#include "messagelog.h"
#include "signallog.h"
#include "text.h"

#include <QAbstractItemModelTester>
#include <QConcatenateTablesProxyModel>
#include <QIdentityProxyModel>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

using Filter = UserApplicationsFilterModel;

class UserApplicationsFilterModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void withoutSource();
    void filters_data();
    void filters();
    void readsTheSecondRoleOnlyWhenNeeded();
    void setFilter();
    void sourceChanges();
    void countFollowsTheSource();
    void ignoresThePattern();
    void keepsTheOrder();
    void refusesItselfAsSource_data();
    void refusesItselfAsSource();

private:
    static QStandardItem *row(const char *name, bool allowed, bool alwaysAllowed, bool autostarted);
    static QString names(const Filter &filter);

    std::unique_ptr<QStandardItemModel> m_source;
};

namespace
{
constexpr int Allowed = 264;
constexpr int AlwaysAllowed = 265;
constexpr int Autostarted = 266;
}

QStandardItem *UserApplicationsFilterModelTest::row(const char *name, bool allowed, bool alwaysAllowed,
                                                    bool autostarted)
{
    auto *item = new QStandardItem(text(name));
    item->setData(allowed, Allowed);
    item->setData(alwaysAllowed, AlwaysAllowed);
    item->setData(autostarted, Autostarted);
    return item;
}

QString UserApplicationsFilterModelTest::names(const Filter &filter)
{
    QString names;
    for (int row = 0; row < filter.rowCount(); ++row) {
        names += filter.index(row, 0).data().toString();
    }
    return names;
}

void UserApplicationsFilterModelTest::init()
{
    m_source = std::make_unique<QStandardItemModel>();
    m_source->appendRow(row("c", true, false, false));
    m_source->appendRow(row("b", false, true, true));
    m_source->appendRow(row("d", true, true, false));
    m_source->appendRow(row("a", false, false, true));
    m_source->appendRow(row("e", false, false, false));
}

void UserApplicationsFilterModelTest::withoutSource()
{
    Filter filter;
    QCOMPARE(filter.count(), 0);
    QCOMPARE(filter.filter(), 0);
    filter.setFilter(1);
    QCOMPARE(filter.count(), 0);
}

void UserApplicationsFilterModelTest::filters_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("expected");
    QTest::newRow("allowed or always allowed") << 0 << text("cbd");
    QTest::newRow("autostarted") << 1 << text("ba");
    QTest::newRow("2") << 2 << QString();
    QTest::newRow("-1") << -1 << QString();
}

void UserApplicationsFilterModelTest::filters()
{
    QFETCH(int, filter);
    QFETCH(QString, expected);
    Filter model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setSourceModel(m_source.get());
    model.setFilter(filter);
    QCOMPARE(names(model), expected);
    QCOMPARE(model.count(), expected.size());
}

void UserApplicationsFilterModelTest::readsTheSecondRoleOnlyWhenNeeded()
{
    class Source : public QStandardItemModel
    {
    public:
        QVariant data(const QModelIndex &index, int role) const override
        {
            asked.append(role);
            return QStandardItemModel::data(index, role);
        }
        mutable QVector<int> asked;
    };
    Source source;
    source.appendRow(row("a", true, true, true));
    source.appendRow(row("b", false, true, true));
    source.asked.clear();
    Filter filter;
    filter.setSourceModel(&source);
    QCOMPARE(filter.count(), 2);
    QCOMPARE(source.asked, (QVector<int>{Allowed, Allowed, AlwaysAllowed}));
    source.asked.clear();
    filter.setFilter(1);
    QVERIFY(!source.asked.contains(Allowed));
    QVERIFY(!source.asked.contains(AlwaysAllowed));
}

void UserApplicationsFilterModelTest::setFilter()
{
    Filter filter;
    filter.setSourceModel(m_source.get());
    QCOMPARE(filter.count(), 3); // from now on it follows its source
    SignalLog log(&filter);
    filter.setFilter(0);
    QCOMPARE(log.take(), QStringList());
    filter.setFilter(2);
    const QStringList signalled = log.take();
    QCOMPARE(filter.count(), 0);
    QCOMPARE(signalled.count(text("filterChanged")), 1);
    QCOMPARE(signalled.last(), text("filterChanged"));
    QVERIFY(signalled.contains(text("countChanged")));
    filter.setFilter(2);
    QCOMPARE(log.take(), QStringList());
    filter.setFilter(-1);
    QCOMPARE(log.take(), QStringList{text("filterChanged")}); // no row is added or removed
    filter.setFilter(0);
    QCOMPARE(filter.count(), 3);
    log.take();
    filter.setFilter(-7);
    QCOMPARE(filter.count(), 0);
    QCOMPARE(log.take(), signalled);
}

void UserApplicationsFilterModelTest::sourceChanges()
{
    Filter filter;
    QSignalSpy count(&filter, &Filter::countChanged);
    filter.setSourceModel(m_source.get());
    QVERIFY(count.count() > 0);
    QCOMPARE(filter.count(), 3);
    count.clear();
    filter.setSourceModel(nullptr);
    QVERIFY(count.count() > 0);
    QCOMPARE(filter.count(), 0);
    filter.setSourceModel(m_source.get());
    count.clear();
    m_source.reset();
    QCOMPARE(filter.count(), 0);
}

void UserApplicationsFilterModelTest::countFollowsTheSource()
{
    Filter filter;
    filter.setSourceModel(m_source.get());
    filter.setFilter(1);
    QCOMPARE(names(filter), text("ba"));
    QSignalSpy count(&filter, &Filter::countChanged);
    m_source->item(0)->setData(true, Autostarted);
    QCOMPARE(names(filter), text("cba"));
    QCOMPARE(count.count(), 1);
    m_source->item(1)->setData(false, Autostarted);
    QCOMPARE(names(filter), text("ca"));
    QCOMPARE(count.count(), 2);
    m_source->item(0)->setData(false, Allowed); // is not used
    m_source->item(4)->setText(text("z"));
    QCOMPARE(count.count(), 2);
    m_source->appendRow(row("f", true, true, false));
    QCOMPARE(count.count(), 2);
    m_source->appendRow(row("g", false, false, true));
    QCOMPARE(count.count(), 3);
    m_source->clear();
    QCOMPARE(filter.count(), 0);
    QCOMPARE(count.count(), 4);
}

void UserApplicationsFilterModelTest::ignoresThePattern()
{
    Filter filter;
    filter.setSourceModel(m_source.get());
    filter.setFilterFixedString(text("nothing"));
    QCOMPARE(names(filter), text("cbd"));
}

void UserApplicationsFilterModelTest::keepsTheOrder()
{
    Filter filter;
    filter.setSourceModel(m_source.get());
    QCOMPARE(names(filter), text("cbd"));
    filter.sort(0);
    QCOMPARE(names(filter), text("bcd"));
}

void UserApplicationsFilterModelTest::refusesItselfAsSource_data()
{
    QTest::addColumn<QVector<int>>("chain");
    QTest::newRow("itself") << QVector<int>{};
    QTest::newRow("its user") << QVector<int>{0};
    QTest::newRow("the user of its user") << QVector<int>{0, 1};
    QTest::newRow("a list of tables") << QVector<int>{2};
    QTest::newRow("a user of the list") << QVector<int>{2, 1};
}

void UserApplicationsFilterModelTest::refusesItselfAsSource()
{
    QFETCH(QVector<int>, chain);
    Filter filter;
    filter.setSourceModel(m_source.get());
    Filter user;
    QIdentityProxyModel identity;
    QConcatenateTablesProxyModel tables;
    QAbstractItemModel *last = &filter;
    for (const int next : qAsConst(chain)) {
        if (next == 2) {
            tables.addSourceModel(m_source.get());
            tables.addSourceModel(last);
            last = &tables;
        } else {
            QAbstractProxyModel *proxy = &identity;
            if (next == 0) {
                proxy = &user;
            }
            proxy->setSourceModel(last);
            last = proxy;
        }
    }
    QSignalSpy changes(&filter, &Filter::sourceModelChanged);
    const MessageLog log;
    filter.setSourceModel(last);
    QCOMPARE(log.take(), QStringList(text("warning org.orvantaos.settings.framework: ")
                                     + QString::fromUtf8(Messages::SourceIsUser)));
    QCOMPARE(filter.sourceModel(), m_source.get());
    QCOMPARE(changes.count(), 0);
    QCOMPARE(names(filter), text("cbd"));
    filter.setSourceModel(nullptr);
    QCOMPARE(filter.count(), 0);
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(UserApplicationsFilterModelTest)
#include "tst_userapplicationsfiltermodel.moc"
