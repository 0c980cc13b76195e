// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/differencelistmodel.h"
#include "common/rowchanges.h"
#include "search/settingssearch.h"

#include <QPointer>
#include <QQmlParserStatus>
#include <QTimer>

#include <optional>

/// A row of a SearchModel.
struct SearchRow {
    SearchResult result; ///< without the item, which can be deleted earlier
    QPointer<TreeItem> item;
    QString text; ///< of the query
    mutable std::optional<SearchHighlights> highlights; ///< read when they are shown
};

/**
 * The entries that a search for "text" finds, the best one first.
 *
 * Rows that stay when the text changes keep their delegates, because only the difference is announced. When entries come
 * or go, the rows follow once the index is complete again; until then "busy" is true.
 */
class SearchModel : public DifferenceListModel<SearchRow>, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// Only entries below this place are found.
    Q_PROPERTY(QStringList path READ path WRITE setPath NOTIFY pathChanged)
    /// Only entries of these types are found, of all types when it is empty.
    Q_PROPERTY(QStringList types READ types WRITE setTypes NOTIFY typesChanged)
    /// Only entries with all words are found, without typos.
    Q_PROPERTY(bool strict READ isStrict WRITE setStrict NOTIFY strictChanged)
    Q_PROPERTY(int limit READ limit WRITE setLimit NOTIFY limitChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// True while entries are still to be read.
    Q_PROPERTY(bool busy READ isBusy NOTIFY busyChanged)

public:
    enum Role {
        ObjectRole = Qt::UserRole + 1, ///< TreeItem
        TitleRole,
        TitleRangesRole, ///< the parts of the title that match: list of maps with "start" and "length"
        BreadcrumbRole, ///< list of the titles above the entry, from the top
        LocationRole, ///< QString, the names down to the entry, joined by slashes
        MatchedRole, ///< QString, the keyword that matches if the title does not, else empty
        MatchedRangesRole,
        KindRole, ///< QString, the type of the entry
        ScoreRole, ///< double, up to 1
    };
    Q_ENUM(Role)

    explicit SearchModel(QObject *parent = nullptr);

    QString text() const;
    void setText(const QString &text);
    QStringList path() const;
    void setPath(const QStringList &path);
    QStringList types() const;
    void setTypes(const QStringList &types);
    bool isStrict() const;
    void setStrict(bool isStrict);
    int limit() const;
    void setLimit(int limit);
    int count() const;
    bool isBusy() const;

    /// Returns the highlights of @p row, one of this model.
    const SearchHighlights &highlightsAt(const SearchRow &row) const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;
    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    void textChanged();
    void pathChanged();
    void typesChanged();
    void strictChanged();
    void limitChanged();
    void countChanged();
    void busyChanged();

private:
    using Signal = void (SearchModel::*)();

    template<typename T>
    void set(T *value, const T &newValue, Signal changed);
    void search();
    void applyResults();
    QVector<SearchRow> findRows();
    QVector<Update> replaceRows(const QVector<int> &origins, const QVector<SearchRow> &found);
    void followBusy();
    void updateBusy();
    void release();

    SettingsSearch m_search;
    SearchQuery m_query;
    RowChanges m_changes;
    QTimer m_release; ///< of the index, some time after the last search
    bool m_isComplete = true;
    bool m_isBusy = false;
};
